// Switches that this start carries out by itself, whether Halyard runs or not.
#pragma once

#include <string>
#include <vector>

namespace halyard::loader {

// True where the first argument is such a switch: it is done then, and `status` is what the program ends with.
bool RunOwnCommand(const std::vector<std::string>& arguments, int& status);

}  // namespace halyard::loader
