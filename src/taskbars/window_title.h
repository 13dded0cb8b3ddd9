// Titles of windows in whatever script they are written.
#pragma once

#include "common/wide_text_buffer.h"
#include "common/win_types.h"

namespace halyard {

// The window's title, cut to 260 characters; empty for none. On the Windows 9x family what the ANSI code page has of
// it. Doesn't wait for the window's program.
WideTextBuffer TitleOf(HWND window) noexcept;

}  // namespace halyard
