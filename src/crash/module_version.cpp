#include "crash/module_version.h"

#include "common/text_buffer.h"
#include "process/profile.h"

#include <winver.h>

namespace halyard {

namespace {

struct VersionEntries {
    decltype(&GetFileVersionInfoSizeA) size;
    decltype(&GetFileVersionInfoA) info;
    decltype(&VerQueryValueA) value;
};

VersionEntries entries;

}  // namespace

void FetchVersionEntries() noexcept {
    const HMODULE library = LoadLibraryA("version.dll");
    entries.size = EntryOf<decltype(entries.size)>(library, "GetFileVersionInfoSizeA");
    entries.info = EntryOf<decltype(entries.info)>(library, "GetFileVersionInfoA");
    entries.value = EntryOf<decltype(entries.value)>(library, "VerQueryValueA");
}

ModuleVersion::ModuleVersion(const char* path) noexcept : text{} {
    if (!entries.size || !entries.info || !entries.value) return;
    DWORD unused = 0;
    const DWORD size = entries.size(path, &unused);
    TextBuffer block;
    if (size == 0 || !block.Reserve(size) || !entries.info(path, 0, size, block.Room())) return;
    VS_FIXEDFILEINFO* fixed = nullptr;
    UINT length = 0;
    if (!entries.value(block.Room(), "\\", reinterpret_cast<void**>(&fixed), &length) || length < sizeof(*fixed))
        return;
    wsprintfA(text, "%d.02%d.%d.%d", HIWORD(fixed->dwFileVersionMS), LOWORD(fixed->dwFileVersionMS),
              HIWORD(fixed->dwFileVersionLS), LOWORD(fixed->dwFileVersionLS));
}

}  // namespace halyard
