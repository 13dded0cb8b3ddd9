// Window placements whose normal rectangle is in screen coordinates.
#pragma once

#include "common/win_types.h"

namespace halyard {

// The platform counts the normal rectangle of a top-level window that isn't a tool window from its display's work
// area ("workspace coordinates"): with a taskbar at the top or at the left it isn't the screen's rectangle. Wine uses
// screen coordinates throughout.
RECT ToWorkspace(HWND window, const RECT& screen) noexcept;
RECT FromWorkspace(HWND window, const RECT& workspace) noexcept;

// All zero but for the length where the window has gone.
WINDOWPLACEMENT PlacementOf(HWND window) noexcept;
// On the window's own thread.
void SetPlacement(HWND window, WINDOWPLACEMENT placement) noexcept;

}  // namespace halyard
