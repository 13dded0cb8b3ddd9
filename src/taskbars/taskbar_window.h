// A bar's window, from its making to its end. On the server's thread.
#pragma once

#include "taskbars/secondary_taskbar.h"

namespace halyard {

inline constexpr char TaskbarWindowClass[] = "TevralHalyardTaskbar";

// Full set-up of a fresh object. `displayRect`: all of the display.
void InitTaskbar(SecondaryTaskbar& bar, DWORD displayIndex, HMONITOR display, const RECT& displayRect) noexcept;

// Stores what the bar has of its own, gives its windows back to the primary taskbar, and destroys its window. The
// object itself stays.
void ShutdownTaskbar(SecondaryTaskbar& bar) noexcept;

}  // namespace halyard
