// One bar on one display, and its buttons.
#pragma once

#include "common/handles.h"
#include "common/row.h"
#include "common/wide_text_buffer.h"
#include "taskbars/bar_geometry.h"

#include <commctrl.h>

namespace halyard {

struct ImageListTraits {
    using Handle = HIMAGELIST;
    static Handle Invalid() noexcept { return nullptr; }
    static void Close(Handle handle) noexcept { ImageList_Destroy(handle); }
};
using ImageList = Owned<ImageListTraits>;

struct TaskButton {
    int image = I_IMAGENONE;  // in the bar's list
    WideTextBuffer text;      // the window's title
    HWND window = nullptr;
    bool onThisDisplay = false;  // whether the window counted as being on the bar's display when last looked at
    WORD commandId = 0;          // of the toolbar's button
    unsigned flashes = 0;        // steps that it still has to flash
};

// On the server's thread. A display can go during any call that lets messages in: whoever holds a pointer to a bar or
// to one of its buttons across such a call asks `IsLive` again after it.
struct SecondaryTaskbar {
    DWORD displayIndex = 0;  // counted from 1; names the stored values
    HMONITOR display = nullptr;
    HWND window = nullptr;
    HWND toolbar = nullptr;
    HWND more = nullptr;    // opens the menu of the windows whose buttons don't fit; null while all do
    RECT displayRect = {};  // all of the display
    RECT windowRect = {};   // of the bar when shown, also while it is slid away
    LONG clientWidth = 0;
    LONG clientHeight = 0;
    BarShape shape;
    Row<TaskButton*> buttons;  // in the order of arrival; owned
    bool raised = false;       // its Z order has been put right after a full-screen program
    bool autohide = false;
    bool hidden = false;      // slid away
    bool busy = false;        // a menu is open, or the user moves or sizes the bar: it doesn't slide away
    bool registered = false;  // the shell knows it as an application bar
    bool onTop = false;
    bool shellHookAttached = false;
    Font boldFont;      // font and background of the checked button, made at first use
    Brush ditherBrush;  //
    ImageList imageList;
};

inline constexpr LONG OverflowWidth = 18;  // pixels of the small button; in height on a vertical bar

// Names of the values that are stored for each bar.
inline constexpr char EdgeValue[] = "TaskbarEdge";
inline constexpr char AutohideValue[] = "TaskbarAutohide";
inline constexpr char OnTopValue[] = "TaskbarOnTop";
inline constexpr char LockedValue[] = "TaskbarLocked";

// The bar's first button of that window; null without one.
TaskButton* FindButton(const SecondaryTaskbar& bar, HWND window) noexcept;

// The bar's button at that address; null where there is none. For addresses that come back from the toolbar, whose
// entries any program can change.
TaskButton* ButtonAtAddress(const SecondaryTaskbar& bar, ULONG_PTR address) noexcept;

// The point of a mouse message, whose coordinates are signed.
constexpr POINT PointOf(LPARAM lParam) noexcept {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

}  // namespace halyard
