// The look that all secondary taskbars share. On the server's thread.
#pragma once

#include "taskbars/secondary_taskbar.h"

namespace halyard {

// Whether the platform's theme draws the bars. Without, or with one that has nothing for taskbars, they are drawn in
// the classic look.
bool DrawsWithTheme() noexcept;
// Whether there are visual styles with nothing for taskbars: controls are drawn with them all the same.
bool HasForeignTheme() noexcept;
const TaskbarMetrics& ActiveMetrics() noexcept;

// Looks anew whether there are visual styles.
void ReloadTheme() noexcept;

void ApplyTheme(SecondaryTaskbar& bar) noexcept;
void ApplyToolbarMetrics(SecondaryTaskbar& bar) noexcept;

// Draws what is behind the buttons. Client coordinates of what the context belongs to.
void DrawBarBackground(const SecondaryTaskbar& bar, HDC dc, const RECT& bounds) noexcept;

// Whether a strip on the bar's inner side is set apart, by which it is sized. Where not, the platform's own frame does
// it, or the bar is locked.
bool HasSizingStrip(const SecondaryTaskbar& bar) noexcept;
// WM_NCPAINT draws it. False where the platform's own frame is to be drawn.
bool DrawSizingStrip(const SecondaryTaskbar& bar) noexcept;

}  // namespace halyard
