// The change of the current desktop.
#pragma once

#include "process/protocol.h"

namespace halyard {

// Makes the desktop current: keeps and stores the outgoing one's background, hides and shows windows, gives the
// platform the incoming one's background. Nothing for the current id; an unknown id changes nothing but stores the
// outgoing one's background. Any thread of the server process; the work is done on the server's, which is waited for.
void Activate(DesktopId id) noexcept;

// The neighbour of the current desktop in list order, round both ends. Any thread of the server process.
void ActivateNext() noexcept;
void ActivatePrevious() noexcept;

// Takes a desktop out of the list; its windows belong to the default desktop from then on. They get there, and the
// default desktop becomes current if the removed one was, with `SettleWindows`, which lets messages in on the way. Both
// on the server's thread.
void RemoveDesktop(DesktopId id) noexcept;
void SettleWindows() noexcept;

// Turns virtual desktops on or off in the settings, stored at once. When they go off, all windows come to the default
// desktop. Any thread of the server process.
void SetMultiDesk(bool on) noexcept;

// The id as windows report it: one that no desktop has counts as the default desktop.
DesktopId KnownDesktop(DesktopId id) noexcept;

}  // namespace halyard
