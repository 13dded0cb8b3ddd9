// The windows on the secondary taskbars: each bar's list is kept in step with the system's windows, and these are
// divided between the secondary taskbars and the primary one. On the server's thread.
#pragma once

#include "taskbars/secondary_taskbar.h"

namespace halyard {

// `onThisDisplay`: whether the window counts as being on the bar's display. Asks the primary taskbar for the place if
// all windows are shown. Null when the bar went away meanwhile or memory ran out.
TaskButton* AddButton(SecondaryTaskbar& bar, HWND window, bool onThisDisplay) noexcept;

// With `giveBack` the primary taskbar gets a button for the window. Nothing if there is none here.
void RemoveButton(SecondaryTaskbar& bar, HWND window, bool giveBack) noexcept;

// A window that was met in a walk over all of them.
void ScanWindow(HWND window, SecondaryTaskbar& bar) noexcept;

// The shell's events. Each bar gets them all.
void OnWindowActivated(SecondaryTaskbar& bar, HWND window) noexcept;
void OnWindowRedraw(SecondaryTaskbar& bar, HWND window) noexcept;
void OnWindowDestroyed(SecondaryTaskbar& bar, HWND window) noexcept;

// Whether the window belongs to a secondary taskbar, and so not to the primary one. With `apply`, after it has moved,
// its button goes where it belongs.
bool OnWindowChanged(HWND window, bool apply) noexcept;

// HM_WINDOW_WISHES: bars that show all tasks get a button for a window on a hidden desktop, too, and it flashes.
void OnWindowWishes(HWND window) noexcept;

// Buttons whose windows have gone without the shell's telling.
void DropDeadButtons() noexcept;

}  // namespace halyard
