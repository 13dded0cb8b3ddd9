// Rectangles of the window events, in screen coordinates.
#pragma once

#include "common/win_types.h"

namespace halyard {

// Where a popup's top left corner goes so that the popup lies inside `frame`. One that is too large keeps its right and
// bottom edges inside.
constexpr POINT KeepInside(RECT popup, const RECT& frame) noexcept {
    const auto shiftX = [&](LONG by) { popup.left += by, popup.right += by; };
    const auto shiftY = [&](LONG by) { popup.top += by, popup.bottom += by; };
    if (popup.left < frame.left) shiftX(frame.left - popup.left);
    if (popup.right > frame.right) shiftX(frame.right - popup.right);
    if (popup.top < frame.top) shiftY(frame.top - popup.top);
    if (popup.bottom > frame.bottom) shiftY(frame.bottom - popup.bottom);
    return {popup.left, popup.top};
}

// Sizes of a window's frame and of its caption buttons, in pixels.
struct FrameMetrics {
    LONG frameWidth;    // SM_CXFRAME
    LONG frameHeight;   // SM_CYFRAME
    LONG buttonWidth;   // SM_CXSIZE
    LONG buttonHeight;  // SM_CYSIZE
};

// The minimise and maximise buttons in the caption of a window with the rectangle `window`.
constexpr RECT CaptionButtons(const RECT& window, const FrameMetrics& metrics) noexcept {
    const LONG top = window.top + metrics.frameHeight;
    const LONG right = window.right - metrics.frameWidth - metrics.buttonWidth;
    return {right - metrics.buttonWidth - 8, top, right, top + metrics.buttonHeight};
}

}  // namespace halyard
