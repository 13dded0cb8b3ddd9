#include "common/window_text.h"

#include "common/wide_text_buffer.h"

#include <cstring>

namespace halyard {

void SetWindowTextOf(HWND window, const char* text) noexcept {
    if (TakesWideText())
        SetWindowTextW(window, WideTextBuffer(text).Text());
    else
        SetWindowTextA(window, text);
}

TextBuffer WindowTextOf(HWND window) noexcept {
    constexpr int Room = 261;
    if (TakesWideText()) {
        wchar_t wide[Room] = {};
        GetWindowTextW(window, wide, Room);
        return Narrow(wide);
    }
    char text[Room] = {};
    GetWindowTextA(window, text, Room);
    return TextBuffer(text);
}

void AppendMenuText(HMENU menu, UINT flags, UINT_PTR id, const char* text) noexcept {
    if (TakesWideText())
        AppendMenuW(menu, flags, id, WideTextBuffer(text).Text());
    else
        AppendMenuA(menu, flags, id, text);
}

TextBuffer WithoutMenuMarks(const char* text) noexcept {
    TextBuffer shown;
    char* room = shown.Reserve(2 * static_cast<unsigned>(std::strlen(text)));
    if (!room) return shown;
    for (; *text; ++text) {
        if (*text == '&') *room++ = '&';
        *room++ = *text;
    }
    return shown;
}

void DrawTextIn(HDC dc, const char* text, RECT& place, UINT format) noexcept {
    if (TakesWideText())
        DrawTextW(dc, WideTextBuffer(text).Text(), -1, &place, format);
    else
        DrawTextA(dc, text, -1, &place, format);
}

}  // namespace halyard
