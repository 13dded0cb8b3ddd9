// A bar's window. On the server's thread.
#pragma once

#include "taskbars/secondary_taskbar.h"

namespace halyard {

inline constexpr char TaskbarWindowClass[] = "TevralHalyardTaskbar";

// Makes a fresh bar's window, with its toolbar, look and place, as its stored values say. `displayRect`: all of the
// display, in screen coordinates. A bar whose window can't be made stays without one.
void InitTaskbar(SecondaryTaskbar& bar, DWORD displayIndex, HMONITOR display, const RECT& displayRect) noexcept;

// After the last bar has gone: the class would keep the library's address after the library.
void UnregisterTaskbarClass() noexcept;

}  // namespace halyard
