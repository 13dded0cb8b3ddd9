// Text to whoever started this program from a console.
#pragma once

#include <string>

namespace halyard::loader {

// To the standard output or the standard error, or to the parent's console where there is neither. Lost without any.
void Print(const std::string& text);
void PrintError(const std::string& text);

}  // namespace halyard::loader
