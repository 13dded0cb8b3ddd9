// The displays that this process knows of.
#pragma once

#include "displays/display_set.h"

namespace halyard {

// Brings the table in line with the platform. Any thread. Where the platform can't enumerate displays the table is
// empty and the bounds stay as they were.
void RefreshDisplays() noexcept;

// The table as of the last refresh. Any thread.
DisplaySet CurrentDisplays() noexcept;
RECT WorkBounds() noexcept;

// How far a window goes right and down from one that stands on its place, in pixels.
int CascadeStep() noexcept;

}  // namespace halyard
