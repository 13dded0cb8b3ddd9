// The buttons of the primary taskbar, which the shell adds and takes away on request. On the server's thread.
#pragma once

#include "common/win_types.h"

namespace halyard {

// Makes the shell's object anew, as a restarted shell wants it. False when it can't be had.
bool CreateTaskbarList() noexcept;

// Nothing happens without the object. A call is missed while the shell's taskbar doesn't answer.
void AddTab(HWND window) noexcept;
void DeleteTab(HWND window) noexcept;

// True, once, when calls were missed and the shell's taskbar answers again.
bool TakeMissedTabs() noexcept;

// Gives back every button that has been taken. Any process, with COM bound.
void GiveTabsBack() noexcept;

}  // namespace halyard
