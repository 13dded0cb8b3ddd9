// Waiting on a thread that owns windows.
#pragma once

#include "common/win_types.h"

namespace halyard {

// Waits until the object is signalled or the time is over, in ms; whether it is signalled. Messages that other threads
// send are answered meanwhile: whoever is waited for may be waiting for just that.
bool WaitAnswering(HANDLE object, DWORD limit) noexcept;

}  // namespace halyard
