// A window that is seen through while it is dragged.
#pragma once

namespace halyard {

struct DragLoop;

// At each step of a move: draws the window with the drag's opacity if that isn't so already and the setting is on. On a
// system without layered windows the drag stays solid.
void BeginTransparency(DragLoop& loop) noexcept;

// Gives the window back what it had.
void EndTransparency(DragLoop& loop) noexcept;

}  // namespace halyard
