// The shell's events: windows that come, go, and are activated. On the server's thread.
#pragma once

#include "taskbars/secondary_taskbar.h"

namespace halyard {

// Asks the shell to tell the bar of its events, which come as the registered "SHELLHOOK" message. The asking ends with
// the bar's window; nothing happens where the shell's library doesn't have the function.
void AttachShellHook(SecondaryTaskbar& bar, bool attach) noexcept;

}  // namespace halyard
