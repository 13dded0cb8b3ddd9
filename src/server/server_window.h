// The hidden window by which all processes reach the server.
#pragma once

#include "common/win_types.h"

namespace halyard {

// On the thread that is to be the server's. Whether the window stands, also one that stood before.
bool CreateServerWindow(WNDPROC procedure) noexcept;
void DestroyServerWindow() noexcept;

}  // namespace halyard
