// What the loader tells of the system, as text or as JSON.
#pragma once

#include "loader/library.h"

#include <string>

namespace halyard::loader {

// On the server's thread. `guard` is the process id of the guard, 0 without one.
std::string StatusText(const Library& library, DWORD guard);
std::string StatusJson(const Library& library, DWORD guard);

}  // namespace halyard::loader
