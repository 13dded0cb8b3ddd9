// Real windows for the tests.
#pragma once

#include "support/windows_seen.h"

#include <functional>
#include <optional>

namespace halyard::test {

// Sees each message ahead of the platform's own procedure; an answer ends the message.
using Handler = std::function<std::optional<LRESULT>(UINT message, WPARAM wParam, LPARAM lParam)>;

struct WindowForm {
    DWORD style = WS_OVERLAPPEDWINDOW, exStyle = 0;
    HWND parent = nullptr;  // owner of a window that isn't a child
    RECT place = {120, 140, 420, 340};
    bool wide = false;  // of the wide interface
};

// A window that goes with its object, if it hasn't gone before.
class TestWindow {
public:
    explicit TestWindow(const WindowForm& form = {});
    explicit TestWindow(HWND made) : window(made) {}
    TestWindow(const TestWindow&) = delete;
    ~TestWindow();

    HWND get() const { return window; }
    RECT Place() const { return PlaceOf(window); }

    Handler handler;

private:
    HWND window;
};

// Runs `body` on a thread of its own while this one hands out its messages; whether it ended by the deadline.
bool RunBeside(const std::function<void()>& body);

}  // namespace halyard::test
