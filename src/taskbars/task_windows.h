// Which windows have a button on a secondary taskbar.
#pragma once

#include "taskbars/secondary_taskbar.h"

namespace halyard {

// Whether the window deserves a button at all.
bool IsTaskWindow(HWND window) noexcept;

// Whether the bar's display is the window's home: the one that it is on when it is neither minimised nor maximised.
bool IsOnDisplay(const SecondaryTaskbar& bar, HWND window) noexcept;

}  // namespace halyard
