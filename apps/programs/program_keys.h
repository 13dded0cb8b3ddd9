// What is stored for single programs, and which of them Halyard keeps out of. In the user's hive.
#pragma once

#include "settings/registry_key.h"

#include <string>
#include <vector>

namespace halyard::programs {

// Full paths.
std::vector<std::string> ExcludedPrograms();

// The path may be relative. The program's running instances go on as they are. False when it can't be stored.
bool SetExcludedProgram(const std::string& path, bool excluded);

// The key of the program with that full path, for reading; false where there is none.
bool OpenProgramKey(RegistryKey& key, const std::string& path);

}  // namespace halyard::programs
