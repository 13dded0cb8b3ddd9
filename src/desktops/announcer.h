// Tells the desktop of a changed background without letting a hung program hold the server up: setting the colour sends
// a message to every window and waits for each without limit, the broadcast waits for up to 2 s a window.
#pragma once

#include "common/win_types.h"

namespace halyard {

// Both are carried out on a thread of their own, in this order, the latest colour winning. They wait for it as long as
// no program is slow, and go on without it after 300 ms; messages sent to the caller are answered meanwhile. On the
// server's thread.
void AnnounceColour(COLORREF colour) noexcept;
void AnnounceSettings() noexcept;

// The background colour: one that is still on its way, else the platform's. Any thread.
COLORREF BackgroundColour() noexcept;

}  // namespace halyard
