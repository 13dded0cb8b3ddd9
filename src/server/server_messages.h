// What the server does for each message to its window.
#pragma once

#include "common/win_types.h"

namespace halyard {

// The procedure of the server's window. On the server's thread.
LRESULT CALLBACK ServerWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace halyard
