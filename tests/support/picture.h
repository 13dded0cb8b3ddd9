// Pictures of the desktop.
#pragma once

#include <string>
#include <vector>
#include <windows.h>

namespace halyard::test {

// The screen as it is now, row by row from the top; the part of it in screen coordinates.
std::vector<COLORREF> PixelsOf(const RECT& part);
// Has all displays saved as that file of the folder "out" beside this program, and waits for it; the file's path.
std::string SavePicture(const std::string& name);

}  // namespace halyard::test
