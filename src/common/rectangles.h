// Plain arithmetic on rectangles; right and bottom are exclusive.
#pragma once

#include "common/win_types.h"

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

}  // namespace halyard
