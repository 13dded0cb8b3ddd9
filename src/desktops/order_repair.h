// Puts the order of windows right after a switch. Wine changes it while windows appear side by side; elsewhere there
// should be nothing to do. Runs on a thread of its own, since it waits for programs, each for a short while only.
#pragma once

#include "desktops/window_order.h"

namespace halyard {

// Once the list of windows has been still for a moment, brings the visible ones of `wanted` into that order, from the
// top down. Windows of programs that don't answer are left out. `front`: the window that the switch gave the
// foreground; when another one gets it meanwhile, the user has gone on, and that one comes first. A later order
// replaces one that isn't carried out yet. Server's thread.
void RepairOrder(const KeyRow& wanted, WindowKey front) noexcept;

// A window that was left out by the last repair has followed at last: it alone takes its place. Nothing for others.
void RepairLateWindow(WindowKey window) noexcept;

// While the last order waits to be carried out, the present order isn't the user's: this is. False when none waits.
bool OrderInRepair(KeyRow& order) noexcept;
void DropRepair() noexcept;

}  // namespace halyard
