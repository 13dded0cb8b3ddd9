#include "process/profile.h"

#include "common/wide_text_buffer.h"

namespace halyard {

Profile profile;

namespace {

struct WidePath {
    explicit WidePath(HMODULE module) noexcept : text{} {
        if (!GetModuleFileNameW(module, text, PathRoom)) text[0] = 0;
        // The older NT systems leave a path that was cut without its closing zero.
        text[PathRoom - 1] = 0;
    }
    wchar_t text[PathRoom];
};

}  // namespace

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
    HMODULE asked = module ? module : GetModuleHandleA(nullptr);
    if (TakesWideText()) {
        const WidePath path(asked);
        WideCharToMultiByte(CP_UTF8, 0, path.text, -1, text, sizeof(text), nullptr, nullptr);
    } else if (!GetModuleFileNameA(asked, text, PathRoom)) {
        text[0] = 0;
    }
    // The 9x family leaves a path that was cut without its closing zero.
    text[TakesWideText() ? sizeof(text) - 1 : PathRoom - 1] = 0;
}

const char* ModulePath::FileName() const noexcept {
    const char* name = text;
    for (const char* at = text; *at; ++at) {
        // The second byte of a double-byte character may look like a backslash.
        if (!TakesWideText() && IsDBCSLeadByte(static_cast<BYTE>(*at)) && at[1])
            ++at;
        else if (*at == '\\')
            name = at + 1;
    }
    return name;
}

HMODULE HoldLibrary() noexcept {
    return TakesWideText() ? LoadLibraryW(WidePath(profile.moduleInstance).text)
                           : LoadLibraryA(ModulePath(profile.moduleInstance).text);
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
