// The wallpaper and its style, as the shell's object has them.
#pragma once

#include "desktops/desktop.h"

namespace halyard {

// From the shell into the desktop, and from the desktop to the shell. On the thread that `BindCom` ran on. False, with
// nothing changed, where the shell has no such object.
bool ReadWallpaper(Desktop& desktop) noexcept;
bool GiveWallpaper(const Desktop& desktop) noexcept;

}  // namespace halyard
