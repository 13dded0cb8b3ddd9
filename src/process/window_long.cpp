#include "process/window_long.h"

namespace halyard {

DWORD ReadWindowLong(HWND window, int index) noexcept {
    return static_cast<DWORD>(IsWindowUnicode(window) ? GetWindowLongW(window, index) : GetWindowLongA(window, index));
}

DWORD WriteWindowLong(HWND window, int index, DWORD value) noexcept {
    const auto raw = static_cast<LONG>(value);
    return static_cast<DWORD>(IsWindowUnicode(window) ? SetWindowLongW(window, index, raw)
                                                      : SetWindowLongA(window, index, raw));
}

WNDPROC SetWindowProc(HWND window, WNDPROC procedure) noexcept {
    const auto raw = reinterpret_cast<LONG_PTR>(procedure);
    return reinterpret_cast<WNDPROC>(IsWindowUnicode(window) ? SetWindowLongPtrW(window, GWLP_WNDPROC, raw)
                                                             : SetWindowLongPtrA(window, GWLP_WNDPROC, raw));
}

LRESULT CallPresentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    // A procedure read through the other interface is a stand-in that only CallWindowProc of that interface resolves.
    if (IsWindowUnicode(window))
        return CallWindowProcW(reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC)), window, message,
                               wParam, lParam);
    return CallWindowProcA(reinterpret_cast<WNDPROC>(GetWindowLongPtrA(window, GWLP_WNDPROC)), window, message, wParam,
                           lParam);
}

BorrowedStyle::BorrowedStyle(HWND target, DWORD bit) noexcept : window(target), old(ReadWindowLong(target, GWL_STYLE)) {
    WriteWindowLong(window, GWL_STYLE, old | bit);
}

BorrowedStyle::~BorrowedStyle() {
    WriteWindowLong(window, GWL_STYLE, old);
}

}  // namespace halyard
