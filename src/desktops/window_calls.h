// Windows that are sent to a desktop, and windows that call from one.
#pragma once

#include "common/win_types.h"
#include "process/protocol.h"

namespace halyard {

// Gives the window, with what goes with it, to a desktop that exists, and makes that current if `follow`; without it
// the next window gets the front. False for a window that no desktop has. Any thread of the server process.
bool SendWindowTo(HWND window, DesktopId desktop, bool follow) noexcept;

// What hooked processes tell: a window has been shown, or has been hidden or minimised; a window that this system has
// hidden has been activated. One that its program shows while it belongs elsewhere is hidden again. If it has been
// given the foreground as well, the user's setting decides: its desktop comes, it comes here, or nothing happens.
// Server's thread.
void OnWindowShown(HWND window, bool shown) noexcept;
void OnWindowCalls(HWND window) noexcept;

// For a window that the current desktop hides: its desktop becomes current, with the window in front. False for others.
// Server's thread.
bool GoToDesktopOf(HWND window) noexcept;

// The session may end: every hidden window is shown, so that programs can ask about unsaved work where the user sees
// it. If the end is called off, the windows go back to their desktops. Server's thread.
void ShowWindowsForSessionEnd() noexcept;
void CallOffSessionEnd() noexcept;

}  // namespace halyard
