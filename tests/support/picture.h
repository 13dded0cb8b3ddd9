// Pictures of the desktop.
#pragma once

#include <string>
#include <vector>

namespace halyard::test {

// Saves all displays as one bitmap file, in the folder that HALYARD_TEST_OUT names or in "out" beside this program.
// Returns the file's path, empty where it couldn't be written.
std::string SavePicture(const std::string& name);

// All displays as they are now: rows of pixels of 4 bytes each.
std::vector<unsigned char> ScreenPixels();

}  // namespace halyard::test
