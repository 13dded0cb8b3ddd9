// Wallpaper, its style and the background colour: read from the platform into a desktop, given from a desktop to it.
#pragma once

#include "desktops/desktop.h"

namespace halyard {

// Both only act in the server process, on the server's thread, after `BindCom`.
void CaptureBackground(Desktop& desktop) noexcept;
void ApplyBackground(const Desktop& desktop) noexcept;

}  // namespace halyard
