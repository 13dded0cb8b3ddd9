// The hidden window by which all processes reach the server.
#pragma once

#include "common/win_types.h"

namespace halyard {

// Whether no server lives, in whatever process. What one that was killed has left in the shared block is cleared,
// and its hooks are taken away.
bool ClearDeadServer() noexcept;

// On the thread that is to be the server's. Nothing if a server window stands.
void CreateServerWindow() noexcept;
void DestroyServerWindow() noexcept;

LRESULT CALLBACK ServerWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace halyard
