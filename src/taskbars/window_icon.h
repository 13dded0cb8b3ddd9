// The small picture by which a window's button is known. On the server's thread.
#pragma once

#include "common/win_types.h"

namespace halyard {

// Takes an icon that was found for a window, for as long as the call. False: it is of no use here, and the next one in
// line is tried.
using IconReceiver = bool (*)(HWND window, HICON icon);

// Gives `receive` the icon of the window's class at once. Without one the file of the window's program is read, on a
// thread of its own. The window itself is asked as well, and its answer counts for more, whenever it comes. A program
// that doesn't answer and a file that is slow to read hold nobody up.
void FindIcon(HWND window, IconReceiver receive) noexcept;

// HM_ICON_READ: gives out the icons that were read from files.
void GiveReadIcons() noexcept;

// Keeps the library mapped if a program still owes an answer, which would come back into it.
void OutliveIconAnswers() noexcept;

}  // namespace halyard
