// The windows that a task list shows, and what it shows of them.
#pragma once

#include <string>
#include <vector>
#include <windows.h>

namespace standin {

// From the front to the back: visible, on no other window, no tool window, and owned by none but a program's hidden
// main window.
std::vector<HWND> TaskWindows();

// The task window that `window` is or belongs to; null where there is none.
HWND TaskOf(HWND window);

std::string TitleOf(HWND window);

// The small one. Never null; not the caller's to destroy.
HICON IconOf(HWND window);

}  // namespace standin
