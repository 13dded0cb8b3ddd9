// The system's published face as another program writes it down: numbers, names and places, on purpose not taken from
// the library's own headers.
#pragma once

#include <windows.h>

namespace halyard::test::published {

inline constexpr char ServerClass[] = "TevralHalyardServerWndClass";
inline constexpr char LoaderClass[] = "TevralHalyardLoaderWndClass";
inline constexpr char SettingBroadcast[] = "TevralHalyardSettingMsg";
inline constexpr char ProductKey[] = "Software\\Tevral, Inc.\\Halyard";

enum ServerMessage : UINT {
    SwitchDesktop = 1027,
    Restart = 1185,
    WindowAttach = 1186,
};
inline constexpr int AllDesktops = -2;
inline constexpr UINT DesktopMenuItem = 64771;

#pragma pack(push, 1)
struct SharedBlock {
    DWORD trayHook;
    DWORD trayListWindow;
    DWORD trayAnswer;
    DWORD currentDesktopId;
    DWORD callWndProcRetHook;
    DWORD getMessageHook;
    DWORD serverWindow;
    BYTE hooksInstalled;
};
#pragma pack(pop)
static_assert(sizeof(SharedBlock) == 29);

}  // namespace halyard::test::published
