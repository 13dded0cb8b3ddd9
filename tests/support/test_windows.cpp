#include "support/test_windows.h"

#include <atomic>
#include <thread>

namespace halyard::test {

namespace {

LRESULT CALLBACK TestProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto* owner = reinterpret_cast<const TestWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    const auto answer = owner && owner->handler ? owner->handler(message, wParam, lParam) : std::nullopt;
    const auto platform = IsWindowUnicode(window) ? DefWindowProcW : DefWindowProcA;
    return answer ? *answer : platform(window, message, wParam, lParam);
}

}  // namespace

TestWindow::TestWindow(const WindowForm& form) {
    WNDCLASSA narrow = {};
    narrow.lpfnWndProc = TestProc;
    narrow.lpszClassName = "HalyardTestWindow";
    RegisterClassA(&narrow);
    const auto& [left, top, right, bottom] = form.place;
    window = CreateWindowExA(form.exStyle, narrow.lpszClassName, "", form.style, left, top, right - left, bottom - top,
                             form.parent, nullptr, nullptr, nullptr);
    // A window is of the interface by which it has got its procedure.
    if (form.wide) SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(TestProc));
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

TestWindow::~TestWindow() {
    handler = nullptr;
    if (IsWindow(window)) DestroyWindow(window);
}

bool RunBeside(const std::function<void()>& body) {
    std::atomic<bool> ended = false;
    std::thread thread([&] {
        body();
        ended = true;
    });
    const bool inTime = Eventually([&] { return ended.load(); });
    // A thread that hangs takes the test along with it, rather than the frame that it works on.
    thread.join();
    return inTime;
}

}  // namespace halyard::test
