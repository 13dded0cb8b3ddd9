// The measures of a secondary taskbar in the classic and in the themed look, in pixels.
#pragma once

#include "common/win_types.h"

namespace halyard {

struct TaskbarMetrics {
    LONG baseHeight;   // of a bar of one row
    LONG gripHeight;   // more on an unlocked bar
    LONG overhang;     // how far a bar on the top or bottom edge reaches beyond its display
    LONG rowHeight;    // of each further row
    LONG stripHeight;  // of a collapsed or hidden bar on the top or bottom edge
    LONG stripWidth;   // of one on the left or right edge
    DWORD windowStyle;
    LONG paddingX;  // these six as the toolbar control takes them
    LONG paddingY;
    LONG barPaddingX;
    LONG barPaddingY;
    LONG spacingX;
    LONG spacingY;
    LONG buttonHeight;          // on the top or bottom edge
    LONG verticalButtonHeight;  // on the left or right edge
    LONG minVerticalWidth;      // least width of a bar on the left or right edge
};

// WS_POPUP, WS_VISIBLE, WS_CLIPSIBLINGS, WS_CLIPCHILDREN; the classic look also has WS_BORDER and WS_THICKFRAME.
inline constexpr TaskbarMetrics ClassicMetrics = {30, 0, 2, 25, 2, 2, 0x96840000, 8, 6, 0, 0, 3, 3, 22, 22, 34};
inline constexpr TaskbarMetrics ThemedMetrics = {30, 4, 0, 30, 2, 2, 0x96000000, 20, 6, 0, 0, 0, 0, 21, 30, 40};

// Of the themed buttons that stand one below the other.
inline constexpr LONG ThemedVerticalSpacing = -5;

}  // namespace halyard
