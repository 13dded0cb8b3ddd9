// How a test steers the sample programs: messages to their windows.
#pragma once

#include <windows.h>

namespace sample {

inline constexpr char DefaultClass[] = "HalyardSample";
inline constexpr char DefaultTitle[] = "Sample";

// Sent unless it says posted; the answer is the message's result.
enum Message : UINT {
    ShowAs = WM_APP + 1,  // wParam: as ShowWindow takes it. The program shows or hides the window itself
    OpenPopup,            // wParam: visible. Opens a popup that the window owns; the answer is its handle
    Hang,                 // posted; wParam: ms. The thread stops, until that time or the event below
    CountMessage,         // wParam: a message below WM_USER. The answer is how many the program's windows were sent
    UnmapLibrary,         // takes the hook library out of the program; the answer is whether it has gone
    OpenMenu,             // the sample shell, posted; lParam: the place on the screen
    CountMenuItem,        // the sample shell; wParam: an id. The answer is how many items of the menu have it
    MenuItemBefore,       // the sample shell; wParam: an id. The answer is the type of the item above it
    MenuItemPlace,        // the sample shell, while the menu is open; wParam: an id. The answer is the item's centre
};

// A manual-reset event; set, it ends every hang.
inline constexpr char WakeEvent[] = "HalyardSampleWake";

}  // namespace sample
