// How a test starts, steers and asks the sample program: switches, and messages to its windows.
#pragma once

#include <string>
#include <windows.h>

namespace sample {

// Switches: --title TEXT, --class NAME, --at LEFT,TOP,WIDTH,HEIGHT, and
//   --count N    main windows, the second and later ones with " 2", " 3" after their title and a step aside
//   --inactive   main windows are shown without being activated; --hidden: they aren't shown
//   --colour     no window: ends with the background colour as the exit status
//   --shell      a shell's desktop windows, with a context menu of one item; the file's name must hold "explorer"
inline constexpr char File[] = "sample.exe";
inline constexpr char DefaultTitle[] = "Sample";
inline constexpr char DefaultClass[] = "HalyardSample";

// Sent unless it says posted; the answer is the message's result.
enum Message : UINT {
    ShowAs = WM_APP + 1,  // wParam: as ShowWindow takes it. The program shows or hides the window itself
    OpenPopup,            // wParam: visible. Opens a popup that the window owns; the answer is its handle
    Hang,                 // posted; wParam: ms. The thread stops, until that time or the event below
    CountMessage,         // wParam: a message below WM_USER. The answer is how many its main windows and popups got
    CountHides,           // how often main windows were hidden
    DropLibrary,          // frees the product's library, as the platform does when its hooks have gone; whether it went
    OpenMenu,             // of the shell, posted; lParam: the place on the screen
    ReportMenu,           // writes the system menu, or the shell's menu, into the window that is the answer
    ItemPlace,            // wParam: id of an item of an open menu. The answer is its centre on the screen, 0 for none
    OpenDialog,           // wParam: an `Owner`; lParam: the place. The answer is the handle; it isn't shown yet
    Activate,             // makes the window the active one of its thread, shown or not
    HasOwnProcedure,      // whether the window's procedure is the one that the program gave it
    AskAttention,         // flashes its caption once
};

enum Owner : WPARAM { VisibleOwner, HiddenOwner, NoOwner };

// A manual-reset event; set, it ends every hang.
inline constexpr char WakeEvent[] = "HalyardSampleWake";

}  // namespace sample
