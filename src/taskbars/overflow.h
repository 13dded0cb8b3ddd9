// The buttons of a bar and, where some don't fit, a small button at its end that opens a menu of these. On the server's
// thread.
#pragma once

#include "taskbars/secondary_taskbar.h"

namespace halyard {

// Sizes the buttons, and shows the small button or takes it away.
void LayOutButtons(SecondaryTaskbar& bar) noexcept;

// Whether the user sees enough of the button to click it.
bool FitsOnBar(const SecondaryTaskbar& bar, const TaskButton& button) noexcept;

}  // namespace halyard
