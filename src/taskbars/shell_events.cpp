#include "taskbars/shell_events.h"

#include "process/profile.h"

namespace halyard {

namespace {

using RegisterShellHookFn = BOOL(WINAPI*)(HWND, DWORD);

// The shell's library has it under a number only, and stays mapped once it was found.
RegisterShellHookFn RegisterShellHookEntry() noexcept {
    constexpr WORD Ordinal = 181;
    static RegisterShellHookFn entry = nullptr;
    if (!entry)
        entry = EntryOf<RegisterShellHookFn>(LoadLibraryA("shell32.dll"), reinterpret_cast<const char*>(Ordinal));
    return entry;
}

}  // namespace

void AttachShellHook(SecondaryTaskbar& bar, bool attach) noexcept {
    constexpr DWORD AddWindow = 1;       // on the Windows 9x family
    constexpr DWORD AddTaskManager = 3;  // elsewhere
    const RegisterShellHookFn registerShellHook = attach ? RegisterShellHookEntry() : nullptr;
    bar.shellHookAttached = registerShellHook != nullptr;
    if (!registerShellHook) return;
    registerShellHook(nullptr, 1);
    registerShellHook(bar.window, profile.isNtFamily ? AddTaskManager : AddWindow);
}

}  // namespace halyard
