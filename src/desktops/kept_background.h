// What the default desktop looked like, kept in the registry while another desktop is current: a server that is killed
// then leaves enough behind to give the user's background back. The key is volatile, so it goes with the session.
#pragma once

#include "desktops/desktop.h"

namespace halyard {

// `standard`: the default desktop with the background that it has just been left with. Lost silently where the key
// can't be written.
void KeepDefaultBackground(const Desktop& standard) noexcept;
void DropDefaultBackground() noexcept;

// Takes the background that was kept into `standard`; false when none was.
bool ReadDefaultBackground(Desktop& standard) noexcept;

}  // namespace halyard
