// The small picture by which a window's button is known. On the server's thread.
#pragma once

#include "common/win_types.h"

namespace halyard {

// Takes an icon that was found for a window, for as long as the call. False: it is of no use here, and the next one in
// line is tried.
using IconReceiver = bool (*)(HWND window, HICON icon);

// Gives `receive` the icon of the window's class or program at once, then asks the window for one of its own, which
// `receive` gets when the window's program answers. One that doesn't answer costs nobody anything.
void FindIcon(HWND window, IconReceiver receive) noexcept;

// Keeps the library mapped if a program still owes an answer, which would come back into it.
void OutliveIconAnswers() noexcept;

}  // namespace halyard
