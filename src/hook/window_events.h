// The single place where a window's life inside a hooked process meets the behaviours.
#pragma once

#include "hook/tracked_window.h"

namespace halyard {

// Does what is due for the window after its procedure has answered one of the messages of the interest table. True
// keeps the record; false means that the caller is to drop it. On the window's own thread.
bool DispatchWindowEvent(TrackedWindow& tracked, const CWPRETSTRUCT& event) noexcept;

}  // namespace halyard
