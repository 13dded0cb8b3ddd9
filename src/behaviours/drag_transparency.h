// A window that is seen through while it is dragged.
#pragma once

namespace halyard {

struct DragLoop;

// At each step of a move: draws the window with the drag's opacity if that isn't so already and the setting is on. A
// window that draws itself as a layered one, and every window of a system without layered windows, stays as it is.
void BeginTransparency(DragLoop& loop) noexcept;

// Draws the window again as before the drag.
void EndTransparency(DragLoop& loop) noexcept;

}  // namespace halyard
