#include "support/windows_seen.h"

namespace halyard::test {

testing::AssertionResult BecomesShown(HWND window, bool visible, DWORD limit) {
    return Comes([&] { return IsWindow(window) && (IsWindowVisible(window) != FALSE) == visible; },
                 [&] { return "should be otherwise: " + Describe(window); }, limit);
}

testing::AssertionResult StaysShown(HWND window, bool visible) {
    // Showing and hiding are sent to the thread; a later message comes after them.
    EXPECT_EQ(Ask(window, WM_NULL), 0);
    return BecomesShown(window, visible, 0);
}

std::string Describe(HWND window) {
    if (!IsWindow(window)) return "no window";
    char name[64] = {}, title[64] = {};
    DWORD process = 0;
    GetClassNameA(window, name, sizeof(name));
    GetWindowTextA(window, title, sizeof(title));
    GetWindowThreadProcessId(window, &process);
    const RECT place = PlaceOf(window);
    return Format("%08lx class \"%s\" title \"%s\" process %04lx at %ld,%ld %ldx%ld %s", HandleToLong(window), name,
                  title, process, place.left, place.top, place.right - place.left, place.bottom - place.top,
                  IsWindowVisible(window) ? "visible" : "hidden");
}

RECT PlaceOf(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    return place;
}

std::vector<HWND> TopLevelWindows() {
    std::vector<HWND> windows;
    const auto collect = [](HWND window, LPARAM found) WINAPI {
        reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
        return TRUE;
    };
    EnumWindows(collect, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

HWND WindowOf(DWORD processId, const std::string& title) {
    for (HWND window : TopLevelWindows()) {
        char text[256] = {};
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        if (process == processId && GetWindowTextA(window, text, sizeof(text)) >= 0 && title == text) return window;
    }
    return nullptr;
}

LRESULT Ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam, DWORD limit) {
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutA(window, message, wParam, lParam, SMTO_NORMAL, limit, &answer)) return -1;
    return static_cast<LRESULT>(answer);
}

std::string TextOf(HWND control) {
    std::string text(static_cast<std::size_t>(Ask(control, WM_GETTEXTLENGTH)) + 1, 0);
    Ask(control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    return text.c_str();
}

GUITHREADINFO ThreadOf(HWND window) {
    GUITHREADINFO info = {};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    return info;
}

}  // namespace halyard::test
