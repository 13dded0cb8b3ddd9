// Window long access that picks the wide or the narrow call by the window, so that a wide window isn't read or written
// through the narrow interface.
#pragma once

#include "common/win_types.h"

namespace halyard {

DWORD ReadWindowLong(HWND window, int index) noexcept;
// Returns the old value.
DWORD WriteWindowLong(HWND window, int index, DWORD value) noexcept;
// Returns the old procedure. Only on the window's own thread.
WNDPROC SetWindowProc(HWND window, WNDPROC procedure) noexcept;

// Calls the window's present procedure directly, without a message being sent. Only on the window's own thread.
LRESULT CallPresentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

// A window's style with a bit set for the length of a scope.
class BorrowedStyle {
public:
    BorrowedStyle(HWND target, DWORD bit) noexcept;
    BorrowedStyle(const BorrowedStyle&) = delete;
    BorrowedStyle& operator=(const BorrowedStyle&) = delete;
    ~BorrowedStyle();

private:
    HWND window;
    DWORD old;
};

}  // namespace halyard
