#include "behaviours/borrowed_proc.h"

namespace halyard {

LRESULT CallOldProc(HWND window, WNDPROC procedure, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const bool wide = IsWindowUnicode(window) != FALSE;
    if (!procedure)
        return wide ? DefWindowProcW(window, message, wParam, lParam) : DefWindowProcA(window, message, wParam, lParam);
    return wide ? CallWindowProcW(procedure, window, message, wParam, lParam)
                : CallWindowProcA(procedure, window, message, wParam, lParam);
}

bool HasProc(HWND window, WNDPROC procedure) noexcept {
    const LONG_PTR present =
        IsWindowUnicode(window) ? GetWindowLongPtrW(window, GWLP_WNDPROC) : GetWindowLongPtrA(window, GWLP_WNDPROC);
    return present == reinterpret_cast<LONG_PTR>(procedure);
}

}  // namespace halyard
