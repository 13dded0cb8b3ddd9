// A chooser of picture and colour, for systems whose own panel is missing.
#pragma once

#include "desktops/desktop.h"

namespace halyard {

// Shows the background and lets the user change it; modal over `owner`, on its thread. False when the user gave up, and
// `background` is as it was.
bool ChooseBackground(HWND owner, Desktop& background) noexcept;

}  // namespace halyard
