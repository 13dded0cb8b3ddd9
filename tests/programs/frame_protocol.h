// How a test steers and asks the sample program `sample_frame`: messages to its windows.
#pragma once

#include "programs/sample_protocol.h"

#include <string>

namespace frame {

// Sent unless it says posted; the answer is the message's result. `sample::ShowAs` and `sample::CountMessage` are
// understood as well, by main windows and dialogs.
enum Message : UINT {
    ReportMenu = WM_APP + 64,  // writes the system menu into the report. The answer is the number of bytes
    ItemPlace,                 // wParam: id of an item of an open menu. The answer is its centre on the screen
    OpenDialog,                // wParam: an `Owner`; lParam: the place. The answer is the handle; it isn't shown yet
    Activate,                  // makes the window the active one of its thread, shown or not
    CountHides,                // how often the program's main windows were hidden
    DestroyAtMove,             // wParam: the WM_MOVING of its drag at which the window destroys itself
    HasOwnProcedure,           // whether the window's procedure is the one that the program gave it
    MakeLayered,               // wParam: alpha
    DropLibrary,               // frees the product's library, as the platform does when its hooks have gone
    LoadLayer,                 // loads "ExtensionLayer.dll" from the program's folder. The answer is whether it could
    ReportSizes,               // writes what the layer and the program themselves are told of the desktop's size
};

enum Owner : WPARAM { VisibleOwner, HiddenOwner, NoOwner };

inline constexpr unsigned ReportSize = 8192;

// The report of a process: zero-closed text in a named block of memory.
inline std::string ReportName(DWORD processId) {
    return "HalyardFrameReport" + std::to_string(processId);
}

}  // namespace frame
