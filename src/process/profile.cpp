#include "process/profile.h"

namespace halyard {

Profile profile;

Profile::Profile() noexcept
    : settingMessage(RegisterWindowMessageA("TevralHalyardSettingMsg")),
      restartMessage(RegisterWindowMessageA("TevralHalyardRestartMsg")) {
    const HMODULE user = GetModuleHandleA("user32.dll");
    enumDisplayMonitors = EntryOf<EnumDisplayMonitorsFn>(user, "EnumDisplayMonitors");
    getMonitorInfo = EntryOf<GetMonitorInfoFn>(user, "GetMonitorInfoA");
    monitorFromWindow = EntryOf<MonitorFromWindowFn>(user, "MonitorFromWindow");
    monitorFromRect = EntryOf<MonitorFromRectFn>(user, "MonitorFromRect");
}

ModulePath::ModulePath(HMODULE module) noexcept : text{} {
    if (!GetModuleFileNameA(module ? module : GetModuleHandleA(nullptr), text, PathRoom)) text[0] = 0;
    // The 9x family and the older NT systems leave a path that was cut without its closing zero.
    text[PathRoom - 1] = 0;
}

void ReadSystemVersion(Profile& target) noexcept {
    OSVERSIONINFOA version = {};
    static_assert(sizeof(version) == 148);
    version.dwOSVersionInfoSize = sizeof(version);
    GetVersionExA(&version);
    target.isWindows2000 = version.dwMajorVersion == 5 && version.dwMinorVersion == 0;
    target.isNtFamily = version.dwPlatformId == VER_PLATFORM_WIN32_NT;
    const HMODULE core = GetModuleHandleA("ntdll.dll");
    const bool isWine = EntryOf<void (*)()>(core, "wine_get_version") != nullptr;
    target.tracksButtonsWithoutCapture = isWine;
    target.postsMenuCommands = isWine;
    target.focusNeedsWindow = isWine;
    target.placesFromWorkArea = !isWine;
    target.copiesMinimiseRects = target.isNtFamily && !isWine;
}

void ReadProgramFlags(Profile& target) noexcept {
    ModulePath path(nullptr);
    LowerAscii(path.text);
    target.program = FlagsOfProgram(path.text);
}

void FindShellWindows(Profile& target) noexcept {
    if (!target.program.explorer) return;
    target.progmanWindow = FindWindowExA(GetDesktopWindow(), nullptr, "Progman", nullptr);
    // Under no window the search would take in all top-level windows.
    if (target.progmanWindow)
        target.desktopViewWindow = FindWindowExA(target.progmanWindow, nullptr, "SHELLDLL_DefView", nullptr);
}

}  // namespace halyard
