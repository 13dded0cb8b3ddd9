// A thread for what another program could hold up for long.
#pragma once

namespace halyard {

// Runs `work` on a thread of its own, which keeps the library mapped until it has ended. False, with nothing run, where
// no thread can be made.
bool RunOnHelperThread(void (*work)()) noexcept;

}  // namespace halyard
