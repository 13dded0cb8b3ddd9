// What a process that has mapped the library knows of itself: its module, its system, its program.
#pragma once

#include "common/entry.h"
#include "common/win_types.h"
#include "process/program_flags.h"

namespace halyard {

inline constexpr unsigned PathRoom = 261;  // characters, the closing zero included

using EnumDisplayMonitorsFn = BOOL(WINAPI*)(HDC, const RECT*, MONITORENUMPROC, LPARAM);
using GetMonitorInfoFn = BOOL(WINAPI*)(HMONITOR, MONITORINFO*);
using MonitorFromWindowFn = HMONITOR(WINAPI*)(HWND, DWORD);
using MonitorFromRectFn = HMONITOR(WINAPI*)(const RECT*, DWORD);

// One per process. The numbers and entries of the first group are set before the load step, the others by it; after
// that all are only read, but for `isServerProcess` and `hookEngineActive`, which are single bytes.
struct Profile {
    Profile() noexcept;

    // Registered messages, the same number in every process.
    UINT settingMessage;
    UINT restartMessage;

    // Entries that an old system may lack; null then.
    EnumDisplayMonitorsFn enumDisplayMonitors;
    GetMonitorInfoFn getMonitorInfo;
    MonitorFromWindowFn monitorFromWindow;
    MonitorFromRectFn monitorFromRect;

    HINSTANCE moduleInstance = nullptr;  // of the library itself
    bool isWindows2000 = false;          // version 5.0, and no other 5.x
    bool isNtFamily = false;
    ProgramFlags program;

    // The platform's tracking of a pressed caption button goes on until the mouse button comes up, whoever has the
    // mouse meanwhile: so on Wine. Elsewhere it ends when the mouse is taken away.
    bool tracksButtonsWithoutCapture = false;

    // The rectangle that message 139 asks for (where does this window minimise to?) is copied between the programs: so
    // on Windows NT. Wine and the 9x family hand the sender's address on as it is.
    bool copiesMinimiseRects = false;

    // Placements of top-level windows count from the work area of their display: so everywhere but on Wine.
    bool placesFromWorkArea = false;

    // What is chosen in a submenu of a system menu comes as an ordinary command, and such a submenu isn't marked as
    // part of the system menu; a menu captures the mouse with a window of its own. So on Wine.
    bool postsMenuCommands = false;

    // Keys come to the program in front by way of any window that has X's own focus, and to nobody when that window
    // goes. So on Wine.
    bool focusNeedsWindow = false;

    // The shell's windows; 0 in every other process, and in a shell that mapped the library before it made them.
    HWND progmanWindow = nullptr;
    HWND desktopViewWindow = nullptr;

    UINT shellHookMessage = 0;
    UINT taskbarCreatedMessage = 0;

    bool isServerProcess = false;           // set once, by ServerInit
    volatile bool hookEngineActive = true;  // both hook procedures only pass messages on while this is clear
};

extern Profile profile;

// Full path of a module's file as a narrow text of the system; null means the process's main module. Empty on failure.
struct ModulePath {
    explicit ModulePath(HMODULE module) noexcept;
    const char* FileName() const noexcept;
    char text[3 * PathRoom];  // a letter takes up to three bytes
};

// One more reference to the library itself, which keeps it mapped until it is given back; null on failure.
HMODULE HoldLibrary() noexcept;

// Note the system's version and ways, and the program: `isWindows2000`, `isNtFamily`, `tracksButtonsWithoutCapture`,
// `placesFromWorkArea`; `program`.
void ReadSystemVersion(Profile& target) noexcept;
void ReadProgramFlags(Profile& target) noexcept;

// Looks for the shell's desktop windows, once; only where the program counts as the shell.
void FindShellWindows(Profile& target) noexcept;

}  // namespace halyard
