// Pictures of the desktop for whoever looks into a failure.
#pragma once

#include <string>

namespace halyard::test {

// Saves all displays as one bitmap file, in the folder that HALYARD_TEST_OUT names or in "out" beside this program.
// Returns the file's path, empty where it couldn't be written.
std::string SavePicture(const std::string& name);

}  // namespace halyard::test
