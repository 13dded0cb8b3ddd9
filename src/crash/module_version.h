// The version that a module's file names.
#pragma once

namespace halyard {

// Looks for the platform's entries, once per process and before the first version is asked for.
void FetchVersionEntries() noexcept;

// Empty for a file without a version, and where the entries are missing.
struct ModuleVersion {
    explicit ModuleVersion(const char* path) noexcept;
    char text[48];
};

}  // namespace halyard
