// Keeps the bars' toolbars from believing other programs. Any program can send a toolbar any message, and some
// platforms hand the addresses in it on as they are. On the server's thread.
#pragma once

#include "common/win_types.h"

namespace halyard {

// From now on only `AskToolbar` can change the control. Other programs may read it, as screen readers do.
void GuardToolbar(HWND toolbar) noexcept;

// Sends one of the toolbar's own messages.
LRESULT AskToolbar(HWND toolbar, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

// Whether the structure lies in the part of this thread's stack that is in use. That is where controls keep what they
// notify of. An address that another program made up isn't there, or at least reading there does no harm.
bool IsOnOwnStack(LPARAM address, SIZE_T size) noexcept;

}  // namespace halyard
