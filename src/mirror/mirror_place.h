// Where a mirror of the task-switch window stands.
#pragma once

#include "common/rectangles.h"

namespace halyard {

// In the middle of `display`, with the size of `original`. Screen coordinates.
constexpr RECT MirrorRect(const RECT& original, const RECT& display) noexcept {
    const LONG left = display.left + (WidthOf(display) >> 1) - WidthOf(original) / 2;
    const LONG top = display.top + (HeightOf(display) >> 1) - HeightOf(original) / 2;
    return {left, top, left + WidthOf(original), top + HeightOf(original)};
}

}  // namespace halyard
