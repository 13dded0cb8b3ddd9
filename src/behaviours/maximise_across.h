// Windows maximised over all displays: a state that the system doesn't have, made up by hand.
#pragma once

#include "hook/tracked_window.h"

namespace halyard {

// Spreads the window over all work areas. `normal`: where it goes back to, in screen coordinates; null takes what its
// placement says now. On the window's own thread.
void MaximiseAcross(TrackedWindow& tracked, const RECT* normal) noexcept;

// Carries the maximise and restore commands out where they change spanning. True: the program mustn't see the command.
bool TakeMaximiseCommand(TrackedWindow& tracked, WPARAM command) noexcept;

// Gives the items of a spanning window's system menu the states that they have in a maximised one. For the program
// that keeps WS_MAXIMIZE off, where the platform doesn't.
void MarkSpanningMenu(HMENU systemMenu) noexcept;

}  // namespace halyard
