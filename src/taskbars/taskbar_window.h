// A bar's window. On the server's thread.
#pragma once

#include "taskbars/secondary_taskbar.h"

namespace halyard {

// Makes a fresh bar's window, with its toolbar, look and place, as its stored values say. `displayRect`: all of the
// display, in screen coordinates. A bar whose window can't be made stays without one.
void InitTaskbar(SecondaryTaskbar& bar, DWORD displayIndex, HMONITOR display, const RECT& displayRect) noexcept;

// For the end of all bars: a class that stayed would name a procedure in a library that may be unmapped.
void UnregisterTaskbarClass() noexcept;

}  // namespace halyard
