// The displays of the desktop as plain values.
#pragma once

#include "common/win_types.h"

namespace halyard {

// Copied whole: a reader works on its own copy while another thread refreshes the table.
struct DisplaySet {
    static constexpr unsigned Limit = 10;  // displays behind the tenth don't exist for us
    static constexpr unsigned None = 0xFFFFFFFF;

    struct Display {
        unsigned handle = 0;  // the low 32 bits of the platform's handle
        RECT bounds = {};     // of the whole display, and of what app bars leave of it; screen coordinates
        RECT workArea = {};
        bool isPrimary = false;
        unsigned number = 0;  // from 1, in the order in which they were added: that of the platform
    };

    unsigned count = 0;
    Display displays[Limit] = {};  // ascending by handle, which has nothing to do with a display's number
    RECT workBounds = {};          // smallest rectangle that holds all work areas

    // Puts a display at its place, numbers it and widens the bounds. Returns whether there is room for more.
    bool Add(Display display) noexcept;

    // `None` for a display that isn't in the set.
    unsigned IndexOf(unsigned handle) const noexcept;

    // Null where no display has that number.
    const Display* Numbered(unsigned number) const noexcept;

    // The display behind it in order of handle, the first behind the last.
    unsigned NextOf(unsigned index) const noexcept { return index + 1 < count ? index + 1 : 0; }
};

}  // namespace halyard
