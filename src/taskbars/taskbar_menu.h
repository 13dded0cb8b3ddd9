// The menu that a right click on a bar's empty part opens, and its commands. On the server's thread.
#pragma once

#include "taskbars/secondary_taskbar.h"

namespace halyard {

// Names of the values that are stored for each bar.
inline constexpr char EdgeValue[] = "TaskbarEdge";
inline constexpr char AutohideValue[] = "TaskbarAutohide";
inline constexpr char OnTopValue[] = "TaskbarOnTop";
inline constexpr char LockedValue[] = "TaskbarLocked";

// Where the mouse was at the message that is being handled. The bar may be gone behind it.
void ShowTaskbarMenu(SecondaryTaskbar& bar) noexcept;

// False: not one of the menu's, or one that the platform is to hear of as well. The bar may be gone behind it.
bool RunTaskbarCommand(SecondaryTaskbar& bar, UINT command) noexcept;

}  // namespace halyard
