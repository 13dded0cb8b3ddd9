// A window of ours that nobody sees. It takes the foreground while a switch hides and shows windows, so that the
// platform activates none of them by itself, and keeps it where nothing else can have it: without a focused window X
// delivers no keys, and then no hotkey would lead away from an empty desktop.
#pragma once

#include "common/win_types.h"

namespace halyard {

// All on the server's thread.

// Shows the keeper above all windows. It stays until `LowerKeeper`: Wine lifts a window that is shown with no visible
// one above it out of its place.
void RaiseKeeper() noexcept;
// Gives it the foreground, too.
void TakeKeyboard() noexcept;
// Hides it, now or when it loses the foreground; on Wine it goes to the bottom.
void LowerKeeper() noexcept;
// The same a little later, unless it is raised again until then: `turn` is the number of the raise that is over. Any
// thread.
void LowerKeeperSoon(unsigned turn) noexcept;
unsigned KeeperTurn() noexcept;

bool KeeperHasKeyboard() noexcept;
void DestroyKeeper() noexcept;

}  // namespace halyard
