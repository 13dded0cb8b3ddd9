// The watch on one move or size loop, for docking and for transparency.
#pragma once

#include "behaviours/drag_transparency.h"

namespace halyard {

// One per process. A second loop that begins during a watch, on whatever thread, gets none. Used on the thread of the
// loop; `EndDragLoop` on the thread that unloads the library.
struct DragLoop {
    HWND window = nullptr;            // null while nothing is watched
    WNDPROC oldWindowProc = nullptr;  // what the window had before
    POINT cursor = {};                // at the last look, screen coordinates
    RECT dragRect = {};      // where the window would be if it simply followed the cursor; docking never moves it
    bool hasDocked = false;  // in this loop

    DragTransparency transparency;
};

extern DragLoop dragLoop;

LRESULT CALLBACK DragWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Ends a watch that is still on and gives the window its procedure and its opacity back: before the code goes away.
void EndDragLoop() noexcept;

// Moves `rect`, a window's, to where it docks on the display that it overlaps most. Returns whether it was changed.
bool DockRectToDisplay(RECT& rect) noexcept;

}  // namespace halyard
