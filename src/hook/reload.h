// What a hooked process reads again when the configuration has changed. Any thread with windows.
#pragma once

#include "common/win_types.h"

namespace halyard {

// `broadcast` is the number of the broadcast that says so: what was read for it already isn't read again. 0 always
// reads. When these return, the new values are there, whichever thread has read them.
void ReloadSettings(LPARAM broadcast) noexcept;

// In the server process the list belongs to the server's thread, and the reading is handed over to it.
void ReloadDesktops(LPARAM broadcast) noexcept;

}  // namespace halyard
