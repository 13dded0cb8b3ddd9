// The look that all secondary taskbars share. On the server's thread.
#pragma once

#include "taskbars/secondary_taskbar.h"

namespace halyard {

// Whether the platform's theme draws the bars. Without, or with one that has nothing for taskbars, they are drawn in
// the classic look.
bool DrawsWithTheme() noexcept;
// Whether there are visual styles that have nothing for taskbars. The platform still draws the toolbar's buttons with
// them.
bool HasForeignTheme() noexcept;
const TaskbarMetrics& ActiveMetrics() noexcept;

// Looks anew whether there are visual styles.
void ReloadTheme() noexcept;

void ApplyTheme(SecondaryTaskbar& bar) noexcept;
void ApplyToolbarMetrics(SecondaryTaskbar& bar) noexcept;

// Draws what is behind the buttons. Client coordinates of what the context belongs to.
void DrawBarBackground(const SecondaryTaskbar& bar, HDC dc, const RECT& bounds) noexcept;

// Whether the bar sets a strip apart on its inner side, by which it is sized. A classic bar has the platform's sizing
// frame instead, and a locked bar isn't sized.
bool HasSizingStrip(const SecondaryTaskbar& bar) noexcept;
// WM_NCPAINT draws it. False where the platform's own frame is to be drawn.
bool DrawSizingStrip(const SecondaryTaskbar& bar) noexcept;

}  // namespace halyard
