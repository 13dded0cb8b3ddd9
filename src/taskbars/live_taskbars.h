// The bars that there are. On the server's thread.
#pragma once

#include "taskbars/secondary_taskbar.h"

namespace halyard {

// The live ones, in the order of their making.
unsigned TaskbarCount() noexcept;
SecondaryTaskbar& TaskbarAt(unsigned index) noexcept;
// Whether the bar is one of them. Any pointer may be asked for.
bool IsLive(const SecondaryTaskbar* bar) noexcept;

// A new bar at the end of the list, which owns it; null when memory ran out.
SecondaryTaskbar* AddTaskbar() noexcept;

// Takes a live bar out of the list. The object stays until `DeleteRetiredTaskbar`, so that its own window procedure may
// retire it. False: it isn't live.
bool RetireTaskbar(SecondaryTaskbar& bar) noexcept;
// HM_TASKBAR_DELETE: frees the bar at that address. Anything but a retired bar is ignored.
void DeleteRetiredTaskbar(LPARAM address) noexcept;

}  // namespace halyard
