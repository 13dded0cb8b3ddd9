#include "support/windows_seen.h"

namespace halyard::test {

namespace {

testing::AssertionResult Becomes(HWND window, bool visible) {
    if (!IsWindow(window)) return testing::AssertionFailure() << Describe(window);
    if (Eventually([&] { return (IsWindowVisible(window) != FALSE) == visible; })) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "should be " << (visible ? "visible: " : "hidden: ") << Describe(window);
}

testing::AssertionResult Stays(HWND window, bool visible) {
    // Showing and hiding are sent to the thread; a later message comes behind them.
    if (Ask(window, WM_NULL) == 0 && (IsWindowVisible(window) != FALSE) == visible) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "should have stayed " << (visible ? "visible: " : "hidden: ")
                                       << Describe(window);
}

BOOL CALLBACK Collect(HWND window, LPARAM windows) {
    reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    return TRUE;
}

}  // namespace

std::string Describe(HWND window) {
    if (!IsWindow(window)) return "no window";
    char name[64] = {};
    char title[64] = {};
    RECT place = {};
    DWORD process = 0;
    GetClassNameA(window, name, sizeof(name));
    GetWindowTextA(window, title, sizeof(title));
    GetWindowRect(window, &place);
    GetWindowThreadProcessId(window, &process);
    char line[256];
    wsprintfA(line, "%08lx class \"%s\" title \"%s\" process %04lx at %ld,%ld %ldx%ld %s", HandleToLong(window), name,
              title, process, place.left, place.top, place.right - place.left, place.bottom - place.top,
              IsWindowVisible(window) ? "visible" : "hidden");
    return line;
}

std::vector<HWND> TopLevelWindows() {
    std::vector<HWND> windows;
    EnumWindows(Collect, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

HWND WindowOf(DWORD processId, const std::string& title) {
    for (HWND window : TopLevelWindows()) {
        char text[256] = {};
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        if (process != processId) continue;
        GetWindowTextA(window, text, sizeof(text));
        if (title == text) return window;
    }
    return nullptr;
}

testing::AssertionResult BecomesVisible(HWND window) {
    return Becomes(window, true);
}

testing::AssertionResult BecomesHidden(HWND window) {
    return Becomes(window, false);
}

testing::AssertionResult StaysVisible(HWND window) {
    return Stays(window, true);
}

testing::AssertionResult StaysHidden(HWND window) {
    return Stays(window, false);
}

LRESULT Ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam, DWORD limit) {
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutA(window, message, wParam, lParam, SMTO_NORMAL, limit, &answer)) return -1;
    return static_cast<LRESULT>(answer);
}

}  // namespace halyard::test
