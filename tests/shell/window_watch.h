// Finds out what a shell is told of windows, by looking again and again: the runtime tells nobody.
#pragma once

#include <string>
#include <vector>
#include <windows.h>

namespace standin {

struct ShellEvent {
    WPARAM code;  // HSHELL_
    HWND window;
};

class WindowWatch {
public:
    // What has happened since the last look; at the first one every window is new.
    std::vector<ShellEvent> Look();
    // Whether the last look found it.
    bool Knows(HWND window) const;

private:
    struct Seen {
        HWND window;
        std::string title;
        bool operator==(HWND other) const { return window == other; }
    };
    std::vector<Seen> windows;  // in the order of their arrival
    HWND active = nullptr;
};

}  // namespace standin
