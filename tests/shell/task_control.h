// The control with the tabs, of the kind that the platform's shell has on newer systems or on older ones, as other
// programs read it in place.
#pragma once

#include <vector>
#include <windows.h>

#include <commctrl.h>

namespace standin {

// Whoever reads the newer kind from outside finds this by the number of a button, and relies on the first word alone.
struct Tab {
    DWORD handle;
    HICON icon;
    HWND Window() const { return static_cast<HWND>(ULongToHandle(handle)); }
};

class TaskControl {
public:
    TaskControl(HWND parent, bool isOlder);
    TaskControl(const TaskControl&) = delete;
    TaskControl& operator=(const TaskControl&) = delete;

    HWND Window() const { return window; }
    // The tabs must lie where they are until the next call.
    void Show(const std::vector<Tab>& tabs) const;

private:
    const bool older;
    const HWND window;
    const HIMAGELIST images;
};

}  // namespace standin
