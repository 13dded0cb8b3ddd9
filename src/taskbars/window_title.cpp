#include "taskbars/window_title.h"

#include "process/profile.h"

namespace halyard {

WideTextBuffer TitleOf(HWND window) noexcept {
    constexpr int TitleRoom = 261;
    if (!profile.isNtFamily) {
        char narrow[TitleRoom] = {};
        GetWindowTextA(window, narrow, TitleRoom);
        return WideTextBuffer(narrow);
    }
    wchar_t title[TitleRoom] = {};
    GetWindowTextW(window, title, TitleRoom);
    return WideTextBuffer(title);
}

}  // namespace halyard
