// How bars end. On the server's thread.
#pragma once

#include "taskbars/secondary_taskbar.h"

namespace halyard {

// Stores what the bar has of its own, gives its windows back to the primary taskbar, and destroys its window. May be
// called from the bar's own window procedure: the object outlives its window until HM_TASKBAR_DELETE. Nothing for a bar
// that isn't live.
void DestroyTaskbar(SecondaryTaskbar& bar) noexcept;
void DestroyAllTaskbars() noexcept;

}  // namespace halyard
