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

INT_PTR CALLBACK DialogProc(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

}  // namespace

TestWindow::TestWindow(const WindowForm& form) {
    WNDCLASSA narrow = {};
    narrow.lpfnWndProc = TestProc;
    narrow.lpszClassName = "HalyardTestWindow";
    RegisterClassA(&narrow);
    WNDCLASSW wide = {};
    wide.lpfnWndProc = TestProc;
    wide.lpszClassName = L"HalyardTestWideWindow";
    RegisterClassW(&wide);
    const auto& [left, top, right, bottom] = form.place;
    window = form.wide ? CreateWindowExW(form.exStyle, wide.lpszClassName, L"", form.style, left, top, right - left,
                                         bottom - top, form.parent, nullptr, nullptr, nullptr)
                       : CreateWindowExA(form.exStyle, narrow.lpszClassName, "", form.style, left, top, right - left,
                                         bottom - top, form.parent, nullptr, nullptr, nullptr);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

TestWindow::~TestWindow() {
    handler = nullptr;
    if (IsWindow(window)) DestroyWindow(window);
}

HWND MakeDialog(DWORD style, HWND owner) {
    // After the header: no menu, the platform's class, no title.
    struct {
        alignas(4) DLGTEMPLATE header;
        WORD menuClassTitle[3];
    } form = {{style, 0, 0, 20, 20, 120, 80}, {0, 0, 0}};
    return CreateDialogIndirectParamA(nullptr, &form.header, owner, DialogProc, 0);
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
