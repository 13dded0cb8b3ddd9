// The taskbars of the secondary displays and the task-switch mirror, together the extras. On the server's thread.
#pragma once

#include "common/win_types.h"

namespace halyard {

void StartExtras() noexcept;
void StopExtras() noexcept;

// Brings what is there in line with the settings, or with the displays.
void RefreshExtras() noexcept;
void SyncDisplays() noexcept;

// A window has moved (`update`), or the shell asks where it belongs. True: on a secondary taskbar, so not on the
// primary.
bool OnWindowChanged(HWND window, bool update) noexcept;

// Gives the primary taskbar a window's button, or takes it away.
void AddTab(HWND window) noexcept;
void DeleteTab(HWND window) noexcept;

// Frees a taskbar whose window has gone; anything but one that was retired is ignored.
void DeleteRetiredTaskbar(LPARAM taskbar) noexcept;

}  // namespace halyard
