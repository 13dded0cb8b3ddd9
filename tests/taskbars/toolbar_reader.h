// Reads a toolbar of another program.
#pragma once

#include <string>
#include <vector>
#include <windows.h>

namespace halyard::test {

struct ToolbarButton {
    std::string text;
    bool checked = false;
    bool separator = false;
    int command = 0;
    RECT place = {};  // in the toolbar's client coordinates
};

// From left to right; empty where the program can't be read.
std::vector<ToolbarButton> ReadToolbar(HWND toolbar);

}  // namespace halyard::test
