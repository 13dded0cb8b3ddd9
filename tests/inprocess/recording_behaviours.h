// Doubles of the behaviours and of the reloading, which write down what the hooks asked of them.
#pragma once

#include "hook/tracked_window.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace halyard::test {

using Calls = std::vector<std::string>;

// Calls of behaviours and messages to the server, in the order in which they came. A line is the name of the call, its
// values and the name that the test gave to the window (nothing for a window named "", "?" for one without a name):
//   "PlaceDialog unplaced", "HandleSysCommand F030 5", "post ATTACH 0 first", "send ATTACH -2", "post CHANGED 1"
class Recording {
public:
    // Stands for the server; its messages are written down here and go nowhere.
    HWND server = nullptr;
    std::map<HWND, std::string> names;
    bool commandAnswer = true;  // of HandleSysCommand
    // Runs inside each call, as the program would when a behaviour touches its window.
    std::function<void(const std::string& call)> during;

    void Add(const std::string& line, HWND window);
    // What has come since the last call of this.
    Calls Take();
    // Writes a message to the server down.
    void AddMessage(const char* how, UINT message, WPARAM wParam, LPARAM lParam);
    void Reset();

private:
    void TakePosted();

    Calls calls;
};

extern Recording recording;

}  // namespace halyard::test
