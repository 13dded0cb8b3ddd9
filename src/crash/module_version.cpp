#include "crash/module_version.h"

#include "common/wide_text_buffer.h"
#include "process/profile.h"

#include <winver.h>

namespace halyard {

namespace {

// The path is a text of the kind that the platform takes.
struct VersionEntries {
    DWORD(WINAPI* size)(const void* path, DWORD* unused);
    BOOL(WINAPI* info)(const void* path, DWORD unused, DWORD size, void* block);
    decltype(&VerQueryValueA) value;
};

VersionEntries entries;

}  // namespace

void FetchVersionEntries() noexcept {
    const HMODULE library = LoadLibraryA("version.dll");
    entries.size = EntryOf<decltype(entries.size)>(library, TakesWideText() ? "GetFileVersionInfoSizeW"
                                                                            : "GetFileVersionInfoSizeA");
    entries.info =
        EntryOf<decltype(entries.info)>(library, TakesWideText() ? "GetFileVersionInfoW" : "GetFileVersionInfoA");
    entries.value = EntryOf<decltype(entries.value)>(library, "VerQueryValueA");
}

ModuleVersion::ModuleVersion(const char* path) noexcept : text{} {
    if (!entries.size || !entries.info || !entries.value) return;
    DWORD unused = 0;
    const WideTextBuffer widePath(path);
    const void* place = TakesWideText() ? static_cast<const void*>(widePath.Text()) : path;
    const DWORD size = entries.size(place, &unused);
    TextBuffer block;
    if (size == 0 || !block.Reserve(size) || !entries.info(place, 0, size, block.Room())) return;
    VS_FIXEDFILEINFO* fixed = nullptr;
    UINT length = 0;
    if (!entries.value(block.Room(), "\\", reinterpret_cast<void**>(&fixed), &length) || length < sizeof(*fixed))
        return;
    wsprintfA(text, "%d.02%d.%d.%d", HIWORD(fixed->dwFileVersionMS), LOWORD(fixed->dwFileVersionMS),
              HIWORD(fixed->dwFileVersionLS), LOWORD(fixed->dwFileVersionLS));
}

}  // namespace halyard
