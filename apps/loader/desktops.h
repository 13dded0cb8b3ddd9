// The desktops as the user knows them.
#pragma once

#include "loader/library.h"

#include <string>
#include <vector>

namespace halyard::loader {

struct NamedDesktop {
    unsigned id;
    std::string name;
};

// In the order of the list, the default one first.
std::vector<NamedDesktop> DesktopsOf(const Library& library);

// The current one; `place` is its place in the list, from 1. Reads no more than its own name.
NamedDesktop CurrentOf(const Library& library, unsigned& place);

unsigned CurrentDesktop(const Library& library) noexcept;

}  // namespace halyard::loader
