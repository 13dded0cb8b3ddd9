// Waiting for windows of other programs, and telling what is seen of them.
#pragma once

#include <cstdio>
#include <gtest/gtest.h>
#include <string>
#include <vector>
#include <windows.h>

namespace halyard::test {

inline constexpr DWORD WaitLimit = 8000;  // ms
inline constexpr DWORD PollPeriod = 10;   // ms

// As printf writes it.
template <typename... Values>
std::string Format(const char* format, Values... values) {
    char text[1024];
    std::snprintf(text, sizeof(text), format, values...);
    return text;
}

// Asks again and again until the answer is yes or the time is over; the last answer. The thread's messages are
// dispatched meanwhile, for tests that own windows.
template <typename Condition>
bool Eventually(Condition condition, DWORD limit = WaitLimit) {
    const DWORD start = GetTickCount();
    for (;;) {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageA(&message);
        if (condition()) return true;
        if (GetTickCount() - start >= limit) return false;
        Sleep(PollPeriod);
    }
}

// The same for EXPECT_TRUE; `tell` gives the text of a failure, of what was seen at the end.
template <typename Condition, typename Tell>
testing::AssertionResult Comes(Condition condition, Tell tell, DWORD limit = WaitLimit) {
    if (Eventually(condition, limit)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << tell();
}

// Class, title, process, rectangle and whether it is visible, in one line.
std::string Describe(HWND window);
RECT PlaceOf(HWND window);
std::vector<HWND> TopLevelWindows();
// Null where the process has no top-level window with that title.
HWND WindowOf(DWORD processId, const std::string& title);

testing::AssertionResult BecomesShown(HWND window, bool visible, DWORD limit = WaitLimit);
inline testing::AssertionResult BecomesVisible(HWND window) {
    return BecomesShown(window, true);
}
inline testing::AssertionResult BecomesHidden(HWND window) {
    return BecomesShown(window, false);
}
// For what must not change: lets the window's thread do all that it has been asked so far, and looks then.
testing::AssertionResult StaysShown(HWND window, bool visible);
inline testing::AssertionResult StaysVisible(HWND window) {
    return StaysShown(window, true);
}
inline testing::AssertionResult StaysHidden(HWND window) {
    return StaysShown(window, false);
}

inline bool IsTopmost(HWND window) {
    return (GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
}

inline testing::AssertionResult BecomesFront(HWND window) {
    return Comes([&] { return GetForegroundWindow() == window; },
                 [] { return "in front: " + Describe(GetForegroundWindow()); });
}

// Sends with a limit of time, in ms; -1 where the answer doesn't come.
LRESULT Ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0, DWORD limit = WaitLimit);
// What the control of another program shows.
std::string TextOf(HWND control);
// What the window's thread has active, focused and captured, and in which of the platform's loops it is.
GUITHREADINFO ThreadOf(HWND window);

}  // namespace halyard::test
