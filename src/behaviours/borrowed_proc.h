// A window procedure that is lent to a window of the program for a bounded time.
#pragma once

#include "common/win_types.h"

namespace halyard {

// Calls a procedure that `SetWindowProc` gave, through the interface that the window belongs to: what it gave may be a
// stand-in that only this resolves. DefWindowProc for a null procedure.
LRESULT CallOldProc(HWND window, WNDPROC procedure, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

// Whether the window's procedure is `procedure` now.
bool HasProc(HWND window, WNDPROC procedure) noexcept;

}  // namespace halyard
