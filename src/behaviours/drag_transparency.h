// A window that is seen through while it is dragged.
#pragma once

#include "common/win_types.h"

namespace halyard {

// How the dragged window was drawn before.
struct DragTransparency {
    bool on = false;
    bool layeredAdded = false;  // the window wasn't layered
    COLORREF key = 0;           // these of one that was
    BYTE alpha = 255;
    DWORD flags = 0;
};

// At each step of a move: draws the window with the drag's opacity if that isn't so already and the setting is on. A
// window that draws itself as a layered one, and every window of a system without layered windows, stays as it is.
void BeginTransparency(HWND window, DragTransparency& state) noexcept;

// Draws the window again as before the drag.
void EndTransparency(HWND window, DragTransparency& state) noexcept;

}  // namespace halyard
