// Tells all programs that the background has changed, without letting a hung program hold the server up: setting the
// colour sends a message to every window and waits for each without limit, and the broadcast waits up to 2 s per
// window.
#pragma once

#include "common/win_types.h"

namespace halyard {

// Both are carried out on a thread of their own, the colour first, and the latest colour wins. They wait up to 300 ms
// for it, which is enough unless a program is slow; messages that are sent to the caller meanwhile are answered. On the
// server's thread.
void ChangeBackgroundColour(COLORREF colour) noexcept;
void NotifyBackgroundChange() noexcept;

// The background colour: one that is still on its way, else the platform's. Any thread.
COLORREF BackgroundColour() noexcept;

}  // namespace halyard
