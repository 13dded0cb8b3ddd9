// The shell's calls about bars that are docked at the edges of displays. On the server's thread.
#pragma once

#include "common/win_types.h"

#include <shellapi.h>

namespace halyard {

// `data` as the platform's call takes it, but for its size; it takes what the shell writes back. A shell that doesn't
// answer at all is not asked, since the call would wait as long as the shell hangs: the bar then reserves nothing.
void CallAppBar(DWORD message, APPBARDATA& data) noexcept;

}  // namespace halyard
