// Made-up desktops, and what the platform would say of them.
#pragma once

#include "displays/display_set.h"
#include "support/rect_values.h"

#include <vector>

namespace halyard::test {

struct Screen {
    RECT whole;
    RECT workArea;
};

struct Layout {
    const char* name;
    std::vector<Screen> screens;

    bool HasBars() const;  // takes a bar anything of any display
    RECT WorkBounds() const;
    // The display that the rectangle overlaps most, else the nearest one.
    const Screen& Nearest(const RECT& rect) const;
    unsigned OverlappedBy(const RECT& rect) const;  // how many displays
};

const std::vector<Layout>& Layouts();

}  // namespace halyard::test
