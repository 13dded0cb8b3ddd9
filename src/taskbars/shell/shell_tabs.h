// The buttons of the primary taskbar, which the shell adds and takes away on request. On the server's thread.
#pragma once

#include "common/win_types.h"

namespace halyard {

// Makes the shell's object anew, as a restarted shell wants it. False when it can't be had.
bool CreateTaskbarList() noexcept;

// Nothing happens without the object.
void AddTab(HWND window) noexcept;
void DeleteTab(HWND window) noexcept;

// Gives back every button that a killed server had taken. Any process, with COM bound; only while no server lives.
void GiveTabsBack() noexcept;

}  // namespace halyard
