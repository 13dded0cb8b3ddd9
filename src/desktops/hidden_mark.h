// The mark on a window that this system has hidden. It is a property of the window itself, put on before the window is
// hidden: it can't be late, it outlives the server, and it goes with the window. Plain calls of the platform, for the
// server and for whoever cleans up after it.
#pragma once

#include "common/win_types.h"
#include "process/protocol.h"

namespace halyard {

// Marks the window with the desktop that it goes to, and asks it to hide. Nothing, and false, for a window that refuses
// the mark. Doesn't wait for the window's program; the window keeps its place in the order, and no other is activated.
bool HideWithMark(HWND window, DesktopId desktop) noexcept;

// Asks the window to show itself and takes the mark off. Doesn't wait, keeps the order, activates nothing.
void ShowAndUnmark(HWND window) noexcept;

// Whether this system has hidden the window. Any process.
bool IsMarkedHidden(HWND window) noexcept;

// Shows every window of this desktop that carries the mark, also one whose program is busy and still has to hide it:
// the program then does both in turn. Only while no server is switching.
void ShowMarkedWindows() noexcept;

}  // namespace halyard
