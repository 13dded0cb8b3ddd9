// The text that --status prints.
#pragma once

#include "loader/library.h"

#include <string>

namespace halyard::loader {

// On the server's thread. One fact a line, for people and scripts.
std::string StatusText(const Library& library);

}  // namespace halyard::loader
