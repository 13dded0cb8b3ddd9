// Windows maximised over all displays: a state that the system doesn't have, made up by hand.
#pragma once

#include "hook/tracked_window.h"

namespace halyard {

// Spreads the window over all work areas. `normal`: where it goes back to, in the coordinates of a window placement;
// null takes what the placement says now. On the window's own thread.
void MaximiseAcross(TrackedWindow& tracked, const RECT* normal) noexcept;

// Looks at the maximise and restore commands. True: the command has been carried out or is dropped, and the program
// mustn't see it.
bool TakeMaximiseCommand(TrackedWindow& tracked, WPARAM command) noexcept;

// Gives the system menu of a spanning window the states of a maximised one, for the program that keeps WS_MAXIMIZE off.
void MarkSpanningMenu(HMENU systemMenu) noexcept;

}  // namespace halyard
