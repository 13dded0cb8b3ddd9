// The system's narrow texts in windows, menus and pictures, every letter of them where the platform takes wide text.
#pragma once

#include "common/text_buffer.h"
#include "common/win_types.h"

namespace halyard {

void SetWindowTextOf(HWND window, const char* text) noexcept;
TextBuffer WindowTextOf(HWND window) noexcept;  // at most 260 characters

// "&" marks the next letter, as the platform has it.
void AppendMenuText(HMENU menu, UINT flags, UINT_PTR id, const char* text) noexcept;
// The text for a menu that shows it as it is, each "&" included.
TextBuffer WithoutMenuMarks(const char* text) noexcept;

void DrawTextIn(HDC dc, const char* text, RECT& place, UINT format) noexcept;

}  // namespace halyard
