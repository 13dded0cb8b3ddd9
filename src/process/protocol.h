// The numbers and names by which the processes of the system talk to each other: private messages to the server window,
// registered broadcasts, timers, window classes and command ids.
#pragma once

#include "common/win_types.h"

namespace halyard {

inline constexpr char ServerWindowClass[] = "TevralHalyardServerWndClass";
inline constexpr char TaskbarWindowClass[] = "TevralHalyardTaskbar";

// Property of a window that a switch has hidden: its desktop id, plus 1.
inline constexpr char HiddenMark[] = "TevralHalyardHidden";

// Property of a window whose program asked for attention while a switch had hidden it; until it is active.
inline constexpr char WishMark[] = "TevralHalyardWish";

// To the server window. Handlers run on the server's thread.
enum ServerMessage : UINT {
    HM_REGISTER_HOTKEYS = 1025,    // RegisterHotkeys on another thread, sent
    HM_UNREGISTER_HOTKEYS = 1026,  // UnregisterHotkeys on another thread, sent
    HM_SWITCH_DESKTOP = 1027,      // window memory in a hooked process, posted; lParam: desktop id
    HM_RESTART = 1185,             // another program; wParam not 0: enable again after the settings were read
    HM_WINDOW_ATTACH = 1186,       // a hooked process, posted or sent; wParam: window, lParam: its desktop id
    HM_WINDOW_DETACH = 1187,       // a hooked process, posted; wParam: window
    HM_OPEN_CONFIG = 1188,         // the shell's process, sent: the user chose our item in the desktop's menu
    HM_WINDOW_CHANGED = 1189,      // wParam: window; lParam 1 (posted): it moved, 0 (sent): asks for its place only
    HM_REFRESH_EXTRAS = 1190,      // taskbars and dialog, posted
    HM_TAB_ADD = 1191,             // task list, posted or sent with time-out; wParam: window
    HM_TAB_DELETE = 1192,          // task list, posted; wParam: window
    HM_TASKBAR_DELETE = 1193,      // task manager, posted; lParam: a retired taskbar
    HM_CALL = 1194,                // RunOnServerThread in the server process, sent; lParam: ticket of the call
    HM_WINDOW_RETURNS = 1196,      // window memory, posted; wParam: window, lParam: the desktop that it reopens on
    HM_WINDOW_SHOWN = 1201,        // a hooked process, posted; wParam: window, lParam 1: it has been shown, 0: hidden
    HM_WINDOW_CALLS = 1202,        // a hooked process, posted; wParam: a window with the mark that has been activated
    HM_WINDOW_WISHES = 1204,       // a hooked process, posted; wParam: a window that asks for attention while hidden
    HM_ICON_READ = 1198,           // a thread of the server process that reads a program's icon, posted
    HM_READ_FAILURE = 1197,        // the loader, sent; wParam: index, 0 the last. Result: a global atom, 0 past the end
    HM_WINDOW_FOLLOW = 1203,       // a hooked process, sent; as HM_WINDOW_ATTACH, and the desktop becomes current
    HM_COUNT_WINDOWS = 1195,       // the loader, sent; lParam: desktop id. Result: windows that the map has there
};

// From the server to the task list of the primary taskbar, posted; lParam: a handle of an event, valid in the shell's
// process. The hook there answers through the shared section, then signals and closes the event.
enum TrayMessage : UINT {
    TM_FIND_WINDOW = 1144,  // wParam: window. Answer: its index in the list
    TM_WINDOW_AT = 1145,    // wParam: index. Answer: the window, or 0 for an item without one
};
inline constexpr DWORD NotInTray = static_cast<DWORD>(-1);  // the answer when there is no such window or index

// Timers of the server window.
enum ServerTimer : UINT {
    PurgeTimer = 1,        // every 30 s: drops dead windows from the map, and brings the others in line
    KeyboardTimer = 2,     // once, after a window has gone: some window must have the keyboard
    DisplaysTimer = 3,     // once, after displays have changed
    FindCursorTimer = 21,  // every 50 ms while the find-cursor animation runs
};
inline constexpr UINT PurgePeriod = 30000;      // ms
inline constexpr UINT KeyboardPeriod = 150;     // ms that the platform gets to choose a window by itself
inline constexpr UINT DisplaysPeriod = 600;     // ms
inline constexpr UINT FindCursorPeriod = 50;    // ms
inline constexpr UINT BroadcastTimeout = 2000;  // ms that a hung program can hold a broadcast up

// What wParam of SettingMsg says. Its lParam is a number of this broadcast, so that a program with many windows reads
// the registry once; 0, from a program that gives none, is read each time.
enum class SettingKind : UINT { Settings = 1, Desktops = 2 };

// Desktop ids are 32-bit numbers, ordered as unsigned ones.
using DesktopId = unsigned int;
inline constexpr DesktopId DefaultDesktopId = 0;
inline constexpr DesktopId UnsavedDesktopId = static_cast<DesktopId>(-1);  // asks `DesktopList::Add` for a new id
inline constexpr DesktopId AllDesktopsId = static_cast<DesktopId>(-2);     // a window that is on every desktop

// Item of the shell's desktop menu that opens the dialog.
inline constexpr UINT ConfigMenuItem = 64771;

// Commands of the system menu's extension that are caught on their way to the program.
inline constexpr UINT FirstExtensionCommand = 64766;
inline constexpr UINT LastExtensionCommand = 64810;
// Posted to a window with WM_SYSCOMMAND by the server, for a hotkey. No menu has them.
enum MoveCommand : UINT {
    MoveToDesktopCommand = 64773,    // lParam: desktop id
    FollowToDesktopCommand = 64774,  // the same, and the desktop becomes current
    MoveToDisplayCommand = 64775,    // lParam: number of the display
};
constexpr bool IsExtensionCommand(UINT command) noexcept {
    return command >= FirstExtensionCommand && command <= LastExtensionCommand;
}

}  // namespace halyard
