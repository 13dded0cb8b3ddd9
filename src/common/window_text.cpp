#include "common/window_text.h"

#include <cstring>

namespace halyard {

void SetWindowTextOf(HWND window, const char* text) noexcept {
    if (TakesWideText())
        SetWindowTextW(window, WideTextBuffer(text).Text());
    else
        SetWindowTextA(window, text);
}

WideTextBuffer WideWindowTextOf(HWND window) noexcept {
    constexpr int Room = 261;
    if (!TakesWideText()) {
        char narrow[Room] = {};
        GetWindowTextA(window, narrow, Room);
        return WideTextBuffer(narrow);
    }
    wchar_t title[Room] = {};
    GetWindowTextW(window, title, Room);
    return WideTextBuffer(title);
}

TextBuffer WindowTextOf(HWND window) noexcept {
    return Narrow(WideWindowTextOf(window).Text());
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
