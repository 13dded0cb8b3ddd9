// The windows that a task list shows, and what it shows of them.
#pragma once

#include <string>
#include <vector>
#include <windows.h>

namespace standin {

// Visible, on no other window, no tool window, and owned by none but a program's hidden main window.
bool IsTaskWindow(HWND window);

// From the front to the back.
std::vector<HWND> TaskWindows();

// The task window that `window` is or belongs to; null where there is none.
HWND TaskOf(HWND window);

std::string TitleOf(HWND window);

// Never null; not the caller's to destroy. `kind` is ICON_SMALL or ICON_BIG.
HICON IconOf(HWND window, WPARAM kind);

}  // namespace standin
