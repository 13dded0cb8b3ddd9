#include "behaviours/geometry.h"

#include <algorithm>
#include <cstdint>

namespace halyard {

namespace {

struct Span {
    LONG low;
    LONG high;
};

// How far a window must go along one axis to lie on the display. An edge of the display that lies on or beyond the
// bounds is an outer one: no display follows there, and windows may leave the desktop over it as they always could. The
// low edge is looked at first.
LONG DockShift(Span window, Span display, Span bounds) noexcept {
    if (window.low < display.low) return display.low > bounds.low ? display.low - window.low : 0;
    if (window.high > display.high) return display.high < bounds.high ? display.high - window.high : 0;
    return 0;
}

bool LiesIn(Span window, Span bounds) noexcept {
    return window.low >= bounds.low && window.high <= bounds.high;
}

LONG AxisShift(Span window, Span display, Span bounds) noexcept {
    const LONG shift = DockShift(window, display, bounds);
    return LiesIn({window.low + shift, window.high + shift}, bounds) ? shift : 0;
}

Span Horizontal(const RECT& rect) noexcept {
    return {rect.left, rect.right};
}

Span Vertical(const RECT& rect) noexcept {
    return {rect.top, rect.bottom};
}

}  // namespace

POINT CentredOn(const RECT& window, const RECT& target, const RECT& workBounds) noexcept {
    const LONG height = HeightOf(window);
    LONG x = target.left + WidthOf(target) / 2 - WidthOf(window) / 2;
    LONG y = target.top + HeightOf(target) / 2 - height / 2;
    x = std::max(x, workBounds.left);
    y = std::min(y, workBounds.bottom - height);
    return {std::max(x, target.left), std::max(y, target.top)};
}

bool DockRect(RECT& proposed, const RECT& display, const RECT& desktopBounds) noexcept {
    const LONG dx = AxisShift(Horizontal(proposed), Horizontal(display), Horizontal(desktopBounds));
    const LONG dy = AxisShift(Vertical(proposed), Vertical(display), Vertical(desktopBounds));
    proposed = Shifted(proposed, dx, dy);
    return dx != 0 || dy != 0;
}

RECT Followed(const RECT& before, POINT from, POINT to, const RECT& proposed) noexcept {
    const LONG width = WidthOf(proposed);
    LONG left = before.left + to.x - from.x;
    const LONG top = before.top + to.y - from.y;
    const LONG grip = from.x - before.left;
    // The cursor keeps its share of the caption.
    if (width < WidthOf(before) && grip >= width)
        left = to.x - static_cast<LONG>(std::int64_t{grip} * width / WidthOf(before));
    return {left, top, left + width, top + HeightOf(proposed)};
}

RECT SpanningRect(const RECT& workBounds) noexcept {
    constexpr LONG Margin = 4;
    return {workBounds.left - Margin, workBounds.top - Margin, workBounds.right + Margin, workBounds.bottom + Margin};
}

RECT BroughtInto(const RECT& window, const RECT& workArea) noexcept {
    // The low edges are settled last: the caption of a window that is too large stays within reach.
    const LONG left = std::max(std::min(window.left, workArea.right - WidthOf(window)), workArea.left);
    const LONG top = std::max(std::min(window.top, workArea.bottom - HeightOf(window)), workArea.top);
    return Shifted(window, left - window.left, top - window.top);
}

BYTE DragAlpha(DWORD perCent) noexcept {
    return static_cast<BYTE>(std::min<DWORD>(perCent, 100) * 255 / 100);
}

}  // namespace halyard
