// Our item in the context menu of the shell's desktop. Only in the shell's process is there a desktop window to compare
// with, so that everything here passes at once in every other.
#pragma once

#include "common/win_types.h"

namespace halyard {

// Watches the menu open, the pointer move over it, and the menu close.
void WatchDesktopMenu(const CWPRETSTRUCT& event) noexcept;

// The mouse button came up on a window. Our item can't be seen chosen as a command, so it counts as chosen when it was
// the last one under the pointer: this then asks the server for the dialog, and waits until that is under way.
void OnDesktopButtonUp(HWND window) noexcept;

}  // namespace halyard
