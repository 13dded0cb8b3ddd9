// Hides and shows windows so that those of the current desktop are seen, in the order and with the front that the
// desktop was left with. Nothing here waits for a program that doesn't answer. On the server's thread.
#pragma once

#include "common/win_types.h"
#include "process/protocol.h"

namespace halyard {

// The desktop `left` was current until now. Its order and front are remembered, and those of the current one restored.
void SwitchWindows(DesktopId left) noexcept;

// Hides what is visible and belongs elsewhere, and shows what is hidden and belongs here. The front stays where it is,
// unless it has been hidden: then the next window gets it.
void BringInLine() noexcept;

// A report of the window's process, or a choice of the user there. A window new to the map is only recorded; a known
// one goes to the desktop at once.
void AssignWindow(HWND window, DesktopId desktop) noexcept;

// Puts the window on the map's desktop with those that it can't be without: the owner that it has disabled, or the one
// whose desktop it shares. False when no desktop has it. The windows themselves stay as they are.
bool RecordGroup(HWND window, DesktopId desktop) noexcept;

// The window is no longer the system's business: shown if this system has hidden it.
void ForgetWindow(HWND window) noexcept;

// Shows all that is hidden, empties the map, and forgets orders.
void ReleaseAllWindows() noexcept;

// The window has followed a request, late perhaps: it takes its place, and the keyboard if it was to have it.
void NoteFollowed(HWND window, bool shown) noexcept;

// Sees to it that some window has the keyboard: where none that can be seen has, the uppermost of the current desktop
// gets it, else the keeper.
void CheckKeyboard() noexcept;

// When that desktop comes back, the window is in front.
void PreferFront(DesktopId desktop, HWND window) noexcept;

// Forgets the order of a desktop that has gone.
void ForgetOrder(DesktopId desktop) noexcept;

}  // namespace halyard
