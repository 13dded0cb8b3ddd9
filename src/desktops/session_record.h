// What is needed to put the user's windows right after a server that was killed: which windows it had hidden, and what
// the default desktop looked like. Kept in a volatile key of the user's hive, which goes with the session.
#pragma once

#include "desktops/desktop.h"

namespace halyard {

// A window that the server has hidden. A handle is used again one day, so that the process must agree as well.
struct HiddenWindow {
    DWORD window;
    DWORD process;
};

// All on the server's thread. Lost silently where the key can't be written.
void KeepHiddenWindows(const HiddenWindow* windows, unsigned count) noexcept;

// `standard`: the default desktop with the background that it has just been left with.
void KeepDefaultBackground(const Desktop& standard) noexcept;
void DropDefaultBackground() noexcept;

// Shows every window that a server before this one left hidden, and takes the background that was kept into `standard`.
// Returns whether there was one, which the caller then gives to the platform. Only while no server lives.
bool RecoverSession(Desktop& standard) noexcept;

}  // namespace halyard
