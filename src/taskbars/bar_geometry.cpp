#include "taskbars/bar_geometry.h"

#include "common/rectangles.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr LONG CollapseLimit = 8;
constexpr LONG LeastButtonWidth = 60;
constexpr LONG MostButtonWidth = 160;
constexpr LONG ButtonMargin = 4;  // beside all buttons together, and taken off a themed one

struct EdgeTraits {
    int backgroundPart;
    int sizingPart;
    int sizingCode;  // HTRIGHT, HTBOTTOM, HTLEFT, HTTOP: the side opposite the edge
};
constexpr EdgeTraits NoEdge = {0, 0, 0};
constexpr EdgeTraits Edges[] = {{4, 8, 11}, {3, 7, 15}, {2, 6, 10}, {1, 5, 12}};

const EdgeTraits& TraitsOf(DWORD edge) noexcept {
    return edge <= BottomEdge ? Edges[edge] : NoEdge;
}

// The part of `rect` along one of its edges: `width` deep at the left or right, `height` deep at the top or bottom.
RECT AlongEdge(const RECT& rect, DWORD edge, LONG width, LONG height) noexcept {
    switch (edge) {
    case LeftEdge: return {rect.left, rect.top, rect.left + width, rect.bottom};
    case TopEdge: return {rect.left, rect.top, rect.right, rect.top + height};
    case RightEdge: return {rect.right - width, rect.top, rect.right, rect.bottom};
    case BottomEdge: return {rect.left, rect.bottom - height, rect.right, rect.bottom};
    }
    return rect;
}

LONG HeightOfRows(DWORD rows, const TaskbarMetrics& metrics) noexcept {
    return metrics.baseHeight + metrics.rowHeight * (static_cast<LONG>(rows) - 1);
}

LONG ConstrainedHeight(LONG height, LONG most, bool autohide, BarShape& shape, const TaskbarMetrics& metrics) noexcept {
    if (height <= CollapseLimit && !autohide) {
        shape.rows = 0;
        return metrics.stripHeight;
    }
    const LONG further = std::min(height, most) + metrics.overhang - metrics.baseHeight - metrics.gripHeight;
    shape.rows = further <= 0 ? 1 : static_cast<DWORD>(further / metrics.rowHeight) + 1;
    return HeightOfRows(shape.rows, metrics) + metrics.gripHeight;
}

LONG ConstrainedWidth(LONG width, LONG most, const TaskbarMetrics& metrics) noexcept {
    if (width <= CollapseLimit) return metrics.stripWidth;
    if (width < metrics.minVerticalWidth) return metrics.minVerticalWidth;
    return std::min(width, most);
}

// Rounded to 32 bits on every machine. Two ratios that are the same then could differ in a wider register.
float Ratio(LONG above, LONG below) noexcept {
    const volatile float ratio = static_cast<float>(above) / static_cast<float>(below);
    return ratio;
}

// In a corner two distances are 0, and their ratio, which isn't a number, counts as less.
bool IsLess(float ratio, float aspect) noexcept {
    return !(ratio >= aspect);
}

LONG HorizontalButtonWidth(const BarShape& shape, unsigned count, LONG clientWidth,
                           const TaskbarMetrics& metrics) noexcept {
    if (shape.rows == 0 || count == 0) return LeastButtonWidth;
    const LONG columns = static_cast<LONG>((count + shape.rows - 1) / shape.rows);
    const LONG width = (clientWidth - metrics.spacingX * (columns - 1) - ButtonMargin) / columns;
    return std::clamp(width, LeastButtonWidth, MostButtonWidth);
}

}  // namespace

RECT BarRect(const RECT& display, const BarShape& shape, const TaskbarMetrics& metrics) noexcept {
    LONG height = metrics.stripHeight;
    if (shape.rows != 0) height = HeightOfRows(shape.rows, metrics) + (shape.locked ? 0 : metrics.gripHeight);
    const RECT bar = AlongEdge(display, shape.edge, shape.verticalWidth, height);
    if (shape.edge == TopEdge) return Shifted(bar, 0, -metrics.overhang);
    if (shape.edge == BottomEdge) return Shifted(bar, 0, metrics.overhang);
    return bar;
}

RECT HiddenBarRect(const RECT& display, DWORD edge, const TaskbarMetrics& metrics) noexcept {
    return AlongEdge(display, edge, metrics.stripWidth, metrics.stripHeight);
}

int BackgroundPart(DWORD edge) noexcept {
    return TraitsOf(edge).backgroundPart;
}

int SizingPart(DWORD edge) noexcept {
    return TraitsOf(edge).sizingPart;
}

int SizingCode(DWORD edge) noexcept {
    return TraitsOf(edge).sizingCode;
}

bool IsOnSizingStrip(const RECT& bar, DWORD edge, POINT point) noexcept {
    switch (edge) {
    case LeftEdge: return point.x >= bar.right - SizingStrip;
    case TopEdge: return point.y >= bar.bottom - SizingStrip;
    case RightEdge: return point.x < bar.left + SizingStrip;
    case BottomEdge: return point.y < bar.top + SizingStrip;
    }
    return false;
}

RECT LessSizingStrip(const RECT& bar, DWORD edge) noexcept {
    RECT rest = bar;
    switch (edge) {
    case LeftEdge: rest.right -= SizingStrip; break;
    case TopEdge: rest.bottom -= SizingStrip; break;
    case RightEdge: rest.left += SizingStrip; break;
    case BottomEdge: rest.top += SizingStrip; break;
    }
    return rest;
}

RECT DraggedSize(const RECT& bar, DWORD edge, POINT from, POINT to) noexcept {
    RECT size = bar;
    switch (edge) {
    case LeftEdge: size.right += to.x - from.x; break;
    case TopEdge: size.bottom += to.y - from.y; break;
    case RightEdge: size.left += to.x - from.x; break;
    case BottomEdge: size.top += to.y - from.y; break;
    }
    return size;
}

RECT ConstrainSize(const RECT& proposed, const RECT& display, bool autohide, BarShape& shape,
                   const TaskbarMetrics& metrics) noexcept {
    RECT size = proposed;
    if (IsVertical(shape.edge)) {
        shape.verticalWidth = ConstrainedWidth(WidthOf(proposed), WidthOf(display) / 2, metrics);
        (shape.edge == LeftEdge ? size.right : size.left) =
            shape.edge == LeftEdge ? size.left + shape.verticalWidth : size.right - shape.verticalWidth;
        return size;
    }
    const LONG height = ConstrainedHeight(HeightOf(proposed), HeightOf(display) / 2, autohide, shape, metrics);
    if (shape.edge == TopEdge) size.bottom = size.top + height;
    if (shape.edge == BottomEdge) size.top = size.bottom - height;
    return size;
}

DWORD EdgeAt(const RECT& display, POINT point) noexcept {
    const LONG toLeft = std::clamp(point.x, display.left, display.right) - display.left;
    const LONG toBottom = display.bottom - std::clamp(point.y, display.top, display.bottom);
    const LONG toRight = WidthOf(display) - toLeft;
    const LONG toTop = HeightOf(display) - toBottom;
    const float aspect = Ratio(WidthOf(display), HeightOf(display));
    const float leftBottom = Ratio(toLeft, toBottom);
    const float rightBottom = Ratio(toRight, toBottom);
    const float leftTop = Ratio(toLeft, toTop);
    const float rightTop = Ratio(toRight, toTop);
    if (leftBottom > aspect && rightBottom > aspect && IsLess(leftTop, aspect) && IsLess(rightTop, aspect))
        return BottomEdge;
    if (leftBottom >= aspect) return RightEdge;
    if (IsLess(rightBottom, aspect) && leftTop > aspect && rightTop > aspect) return TopEdge;
    if (rightBottom > aspect && IsLess(leftTop, aspect) && rightTop > aspect) return LeftEdge;
    return RightEdge;
}

ButtonSize SizeOfButtons(const BarShape& shape, unsigned count, LONG clientWidth, bool themed,
                         const TaskbarMetrics& metrics) noexcept {
    if (IsVertical(shape.edge)) return {clientWidth - ButtonMargin, metrics.verticalButtonHeight};
    const LONG width = HorizontalButtonWidth(shape, count, clientWidth, metrics);
    return {themed ? width - ButtonMargin : width, metrics.buttonHeight};
}

}  // namespace halyard
