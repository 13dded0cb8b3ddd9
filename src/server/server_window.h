// The hidden window by which all processes reach the server.
#pragma once

#include "common/win_types.h"

namespace halyard {

// On the thread that is to be the server's. Nothing if a server window stands.
void CreateServerWindow() noexcept;
void DestroyServerWindow() noexcept;

LRESULT CALLBACK ServerWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace halyard
