// What clicks on a bar's buttons do. On the server's thread.
#pragma once

#include "taskbars/secondary_taskbar.h"

namespace halyard {

// A click on `button`, or beside all buttons (null): minimises the active window, activates another one.
void OnButtonClick(SecondaryTaskbar& bar, const TaskButton* button) noexcept;
// Restores a minimised window, and activates it.
void BringTaskToFront(HWND window) noexcept;
// A right click on an entry of the toolbar: opens the system menu of its window there. Screen coordinates.
void OnButtonMenu(const SecondaryTaskbar& bar, int entry, POINT point) noexcept;

}  // namespace halyard
