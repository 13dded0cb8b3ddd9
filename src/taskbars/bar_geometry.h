// Where a secondary taskbar stands and how large its buttons are. Screen coordinates, which may be negative; right and
// bottom are exclusive. Sizes in pixels.
#pragma once

#include "taskbars/taskbar_metrics.h"

namespace halyard {

// The edge of the display that a bar stands on, numbered as the platform's app bars number it.
enum BarEdge : DWORD { LeftEdge, TopEdge, RightEdge, BottomEdge };

constexpr bool IsVertical(DWORD edge) noexcept {
    return edge == LeftEdge || edge == RightEdge;
}

// What a bar's rectangle is made of.
struct BarShape {
    DWORD edge = BottomEdge;
    DWORD rows = 1;  // 0: collapsed to a strip. On the top or bottom edge only.
    LONG verticalWidth = 98;
    bool locked = false;
};

// The bar when it is shown. It may reach beyond the display by the overhang. An edge that isn't one gives the whole
// display.
RECT BarRect(const RECT& display, const BarShape& shape, const TaskbarMetrics& metrics) noexcept;

// What remains of an auto-hide bar that is slid away.
RECT HiddenBarRect(const RECT& display, DWORD edge, const TaskbarMetrics& metrics) noexcept;

// Parts of the theme class "TASKBAR" that the bar on an edge is drawn with; 0 for an edge that isn't one.
int BackgroundPart(DWORD edge) noexcept;
int SizingPart(DWORD edge) noexcept;

// Depth of a bar's inner side, by which it is resized.
inline constexpr LONG SizingStrip = 4;

// The hit-test code by which the platform resizes the inner side of a bar on that edge; 0 for an edge that isn't one.
int SizingCode(DWORD edge) noexcept;
// Whether the point is on the inner side of the bar.
bool IsOnSizingStrip(const RECT& bar, DWORD edge, POINT point) noexcept;
// `bar` without its inner side.
RECT LessSizingStrip(const RECT& bar, DWORD edge) noexcept;

// A bar whose inner side follows the cursor, which took it at `from` and is at `to` now.
RECT DraggedSize(const RECT& bar, DWORD edge, POINT from, POINT to) noexcept;

// What a user's sizing of a bar to `proposed` comes to: the rows or the width in `shape`, the rectangle as the result.
// A bar takes half of the display at most, and a row or the least width at least. One that is sized to almost nothing
// collapses to a strip, but for an auto-hide bar on the top or bottom edge.
RECT ConstrainSize(const RECT& proposed, const RECT& display, bool autohide, BarShape& shape,
                   const TaskbarMetrics& metrics) noexcept;

// The edge that a user means who drags a bar to the point: the diagonals of the display cut it into four triangles.
// Points outside count as the nearest one inside.
DWORD EdgeAt(const RECT& display, POINT point) noexcept;

struct ButtonSize {
    LONG width;
    LONG height;
};

// `themed`: the buttons are drawn by the theme.
ButtonSize SizeOfButtons(const BarShape& shape, unsigned count, LONG clientWidth, bool themed,
                         const TaskbarMetrics& metrics) noexcept;

}  // namespace halyard
