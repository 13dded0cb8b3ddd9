// Messages to all top-level windows.
#pragma once

#include "process/protocol.h"

namespace halyard {

// Makes every GUI thread pass through its message loop once, which is where the system maps a hook library into a
// process or lets it go. Waits for none of them.
void WakeAllThreads() noexcept;

// The hooks have just been installed: every window classifies itself and reports, and every program reads the registry,
// which may have changed while no hook told it so.
void BroadcastStart() noexcept;

// The hooks are about to go: every window gives up what it got from this system. Returns when all programs have done
// so, at the latest after 2000 ms. Some platforms keep the library in the programs, which would keep its menus
// otherwise.
void BroadcastEnd() noexcept;

// Every process with a window in the broadcast reads the registry again. To be called after the store was written.
void BroadcastSettings(SettingKind kind) noexcept;

}  // namespace halyard
