// How the stand-in's task list is asked and steered: messages to its window of the class `TrayClass`.
#pragma once

#include <windows.h>

namespace standin {

inline constexpr char TrayClass[] = "Shell_TrayWnd";

// Of a window that is to be told of shell events: the window of the shell that it registered with.
inline constexpr char ListenerProperty[] = "StandInListener";

// Sent unless it says posted; the answer is the message's result. WM_CLOSE ends the program.
enum TrayMessage : UINT {
    CountTabs = WM_APP + 0x200,
    TabAt,          // wParam: an index. The answer is the tab's window
    MarkedTab,      // the answer is the window that is marked as active, or null
    AddTab,         // wParam: a window
    DeleteTab,      // wParam: a window
    MoveTray,       // wParam: a display, counted from 1 as they are enumerated; lParam: ABE_TOP or ABE_BOTTOM
    SayFullScreen,  // wParam: whether a program fills the screen. Told to the bars of other programs
    HangTray,       // posted; wParam: ms for which the thread stops
};

}  // namespace standin
