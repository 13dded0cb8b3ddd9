// Help popups, the same on every page. On the dialog's thread.
#pragma once

#include "common/win_types.h"

namespace halyard {

// True: the message ends here, with 0 as the answer.
bool HandleHelpMessage(HWND page, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

}  // namespace halyard
