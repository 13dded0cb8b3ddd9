// The wallpaper and its style, as the shell has them.
#pragma once

#include "desktops/desktop.h"

namespace halyard {

// From the shell into the desktop, and from the desktop to the shell; where the shell has no such object, from and to
// the platform itself. Giving is false where that showed it already. On the thread that `BindCom` ran on.
void ReadWallpaper(Desktop& desktop) noexcept;
bool GiveWallpaper(const Desktop& desktop) noexcept;

}  // namespace halyard
