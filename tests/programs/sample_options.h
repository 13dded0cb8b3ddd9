// The command line of the sample program.
#pragma once

#include <string>
#include <windows.h>

namespace sample {

struct Options {
    std::string title;
    std::string windowClass;
    RECT place = {40, 40, 360, 280};
    int count = 1;            // of main windows, the second and later ones with " 2", " 3" behind their title
    bool ownThreads = false;  // each main window on a thread of its own
    bool hidden = false;      // main windows aren't shown at the start
    bool colour = false;      // no window: ends with the background colour as the exit status
};

// False for a switch that doesn't exist.
bool ReadOptions(int count, char** arguments, Options& options);

}  // namespace sample
