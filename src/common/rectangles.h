// Plain arithmetic on rectangles; right and bottom are exclusive.
#pragma once

#include "common/win_types.h"

#include <algorithm>

namespace halyard {

constexpr LONG WidthOf(const RECT& rect) noexcept {
    return rect.right - rect.left;
}
constexpr LONG HeightOf(const RECT& rect) noexcept {
    return rect.bottom - rect.top;
}
constexpr bool SameRect(const RECT& a, const RECT& b) noexcept {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}
constexpr RECT Shifted(const RECT& rect, LONG dx, LONG dy) noexcept {
    return {rect.left + dx, rect.top + dy, rect.right + dx, rect.bottom + dy};
}
// The smallest rectangle that holds both.
constexpr RECT UnionOf(const RECT& a, const RECT& b) noexcept {
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right), std::max(a.bottom, b.bottom)};
}

}  // namespace halyard
