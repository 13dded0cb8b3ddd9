// Wallpaper, its style and the background colour: read from the platform into a desktop, given from a desktop to it.
#pragma once

#include "desktops/desktop.h"

namespace halyard {

// Binds COM late and initialises it on the calling thread, which must be the server's. Without it only the colour goes
// in and out. Once per process.
void BindCom() noexcept;

// Both only act in the server process, on the server's thread. Without the shell's object, wallpaper and style stay as
// they are in the desktop and on the platform.
void CaptureBackground(Desktop& desktop) noexcept;
// Brings the windows in line first.
void ApplyBackground(const Desktop& desktop) noexcept;

}  // namespace halyard
