// Real windows for the tests, and the pumping of their thread's messages.
#pragma once

#include "common/win_types.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace halyard::test {

inline constexpr DWORD Deadline = 5000;  // ms until what is waited for must have come

// Hands out the thread's messages until `done`; false at the deadline.
bool PumpUntil(const std::function<bool()>& done, DWORD limit = Deadline);
// Hands out what waits now.
void PumpAll();

// Sees each message ahead of the platform's own procedure; an answer ends the message.
using Handler = std::function<std::optional<LRESULT>(UINT message, WPARAM wParam, LPARAM lParam)>;

struct WindowForm {
    const char* className = nullptr;  // null: a class of the tests, with the handler as its procedure
    DWORD style = WS_OVERLAPPEDWINDOW;
    DWORD exStyle = 0;
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
    TestWindow& operator=(const TestWindow&) = delete;
    ~TestWindow();

    HWND get() const { return window; }
    RECT Place() const;
    DWORD Style() const;

    Handler handler;

private:
    HWND window;
};

// A class whose windows have the same procedure as the others of the tests.
class TestClass {
public:
    explicit TestClass(const char* className);
    TestClass(const TestClass&) = delete;
    TestClass& operator=(const TestClass&) = delete;
    ~TestClass();

private:
    std::string name;
};

// A dialog box from a template in memory, without controls and not shown.
HWND MakeDialog(DWORD style, HWND owner);

// Runs `body` on a thread of its own while this one hands out its messages; whether it ended by the deadline.
bool RunBeside(const std::function<void()>& body);

}  // namespace halyard::test
