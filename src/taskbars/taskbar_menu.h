// The menu that a right click on a bar's empty part opens, and its commands. On the server's thread.
#pragma once

#include "taskbars/secondary_taskbar.h"

namespace halyard {

// Opens it where the mouse was at the message that is being handled. The bar may be gone afterwards.
void ShowTaskbarMenu(SecondaryTaskbar& bar) noexcept;

// False: the platform is to hear of the command as well. The bar may be gone afterwards.
bool RunTaskbarCommand(SecondaryTaskbar& bar, UINT command) noexcept;

}  // namespace halyard
