// Messages to all top-level windows.
#pragma once

#include "process/protocol.h"

namespace halyard {

// Makes every GUI thread pass through its message loop once, which is where the system maps a hook library into a
// process or lets it go. A hung program holds the caller up for 2000 ms at most.
void WakeAllThreads() noexcept;

// `on`: the hooks have just been installed (every window classifies itself and reports), else they have been removed.
void BroadcastRestart(bool on) noexcept;

// Every process with a window in the broadcast reads the registry again. To be called after the store was written.
void BroadcastSettings(SettingKind kind) noexcept;

}  // namespace halyard
