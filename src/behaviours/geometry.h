// Where windows go: rectangles in, rectangles out. Screen coordinates, which may be negative; right and bottom are
// exclusive.
#pragma once

#include "common/rectangles.h"

namespace halyard {

// Where a window's top left corner goes so that the window is centred on `target`. Not left of the work bounds nor
// below them, but above all not left of the target nor above it.
POINT CentredOn(const RECT& window, const RECT& target, const RECT& workBounds) noexcept;

// Moves `proposed` so that it lies whole on `display` (the whole of it, not its work area), unless the edge that it
// sticks out of is an edge of the desktop. `desktopBounds`: the union of all work areas. An axis on which the move
// would end outside of these bounds is left alone. Returns whether `proposed` was changed.
bool DockRect(RECT& proposed, const RECT& display, const RECT& desktopBounds) noexcept;

// Where a window that stood at `before` is dragged to while the cursor goes from `from` to `to`. It has the size of
// `proposed`: the platform changes the size in a drag when the window leaves the maximised state or comes to a display
// of another scale. A window that has become too narrow to be under the cursor is moved there.
RECT Followed(const RECT& before, POINT from, POINT to, const RECT& proposed) noexcept;

// The rectangle of a window that spans all displays: a fixed margin beyond the bounds hides its frame.
RECT SpanningRect(const RECT& workBounds) noexcept;

// `window` moved, with its size kept, so that its top left corner and as much of it as fits lie in `workArea`.
RECT BroughtInto(const RECT& window, const RECT& workArea) noexcept;

// Opacity of a dragged window, 0 to 255. A percentage above 100 counts as 100.
BYTE DragAlpha(DWORD perCent) noexcept;

}  // namespace halyard
