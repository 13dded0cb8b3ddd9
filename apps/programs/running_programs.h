// The programs that run with the library inside.
#pragma once

#include <string>
#include <vector>
#include <windows.h>

namespace halyard::programs {

struct RunningProgram {
    DWORD process;
    std::string name;  // of its file
    std::string path;  // full; empty where the system doesn't tell
};

// Those of this program's bitness, but for this program itself, and without those that the system guards from this
// user.
std::vector<RunningProgram> ProgramsInside();

}  // namespace halyard::programs
