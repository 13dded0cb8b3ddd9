// What the user wrote on the command line.
#pragma once

#include <string>
#include <vector>

namespace halyard::loader {

// Without the program's name, as narrow texts of the system: `count` and `narrow` are what `main` got, which lacks
// letters outside of the ANSI code page.
std::vector<std::string> Arguments(int count, char** narrow);

}  // namespace halyard::loader
