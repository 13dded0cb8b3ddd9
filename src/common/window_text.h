// The system's narrow texts in windows, menus and pictures, every letter of them where the platform takes wide text.
// Any thread; what the platform refuses is lost silently.
#pragma once

#include "common/wide_text_buffer.h"
#include "common/win_types.h"

namespace halyard {

void SetWindowTextOf(HWND window, const char* text) noexcept;
// The window's title, cut to 260 characters; empty for none. On the Windows 9x family what the ANSI code page has of
// it. Neither waits for the window's program.
WideTextBuffer WideWindowTextOf(HWND window) noexcept;
TextBuffer WindowTextOf(HWND window) noexcept;

// "&" marks the next letter, as the platform has it.
void AppendMenuText(HMENU menu, UINT flags, UINT_PTR id, const char* text) noexcept;
// The text for a menu that shows it as it is, each "&" included.
TextBuffer WithoutMenuMarks(const char* text) noexcept;

void DrawTextIn(HDC dc, const char* text, RECT& place, UINT format) noexcept;

}  // namespace halyard
