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

// Takes a desktop out of the list; its windows go to the default desktop, which becomes current if the removed one was.
void RemoveDesktop(DesktopId id) noexcept;

// Turns virtual desktops on or off in the settings, memory only. When they go off, all windows come to the default
// desktop. The value that is set already does nothing.
void SetMultiDesk(bool on) noexcept;

// The id as windows report it: one that no desktop has counts as the default desktop.
DesktopId KnownDesktop(DesktopId id) noexcept;

}  // namespace halyard
