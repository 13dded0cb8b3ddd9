// Doubles of the behaviours and of the reloading, which write down what the hooks asked of them.
#pragma once

#include "hook/tracked_window.h"

#include <functional>
#include <string>
#include <vector>

namespace halyard::test {

using Calls = std::vector<std::string>;

// Calls of behaviours and messages to the server, in the order in which they came. A line is the name of the call and
// its values, with " other" behind it when it isn't about the window that the test looks at:
//   "PlaceDialog unplaced", "HandleSysCommand F030 5 hit 0", "post 1186 0", "send 1186 -2 other"
struct Recording {
    HWND server = nullptr;  // stands for the server; its messages are written down here and go nowhere
    HWND subject = nullptr;
    bool commandTaken = false;    // the answer of HandleSysCommand
    bool changesSpanning = true;  // the answer of ChangesSpanning, which isn't written down
    // Runs inside each call, as the program would when a behaviour touches its window.
    std::function<void(const std::string& call)> during;
    Calls calls;

    void Add(const std::string& line, HWND window);
    void AddMessage(const char* how, UINT message, WPARAM wParam, LPARAM lParam);
    void TakePosted();
    // What has come since the last call of this.
    Calls Take();
};

extern Recording recording;

}  // namespace halyard::test
