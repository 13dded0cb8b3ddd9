// Switches that this start carries out by itself, whether Halyard runs or not.
#pragma once

namespace halyard::loader {

// True where the first argument is such a switch: it is done then, and `status` is what the program ends with.
bool RunOwnCommand(int count, char** arguments, int& status);

}  // namespace halyard::loader
