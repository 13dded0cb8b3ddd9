// The stand-in shell in the hands of a test.
#pragma once

#include "shell/tray_protocol.h"
#include "support/children.h"
#include "support/registry.h"

#include <string>
#include <vector>

namespace halyard::test {

// The running task bar, and the shell's task list object in the place of the runtime's.
class Tray {
public:
    Tray();

    // Starts the program and waits until its bar is there. With "--tabs" its list is of the older kind.
    void Start(Children& children, const std::string& switches = {});
    // Waits until it has ended.
    void Kill();

    HWND Window() const { return window; }
    // The windows that have tabs, in their order.
    std::vector<HWND> TabWindows() const;
    HWND Marked() const;
    // Edges by their ABE_ values.
    void Move(int display, UINT edge) const;
    // To the docked bars of other programs.
    void SayThatScreenIsFull(bool full) const;
    void Hang(DWORD period) const;  // in ms; doesn't wait

private:
    ClassRegistration taskList;
    const Child* program = nullptr;
    HWND window = nullptr;
};

}  // namespace halyard::test
