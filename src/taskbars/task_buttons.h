// A bar's toolbar control: how its buttons look, where they stand, and what a click on one does. On the server's
// thread.
#pragma once

#include "taskbars/secondary_taskbar.h"

namespace halyard {

// Makes the control and the list of its icons.
void CreateToolbar(SecondaryTaskbar& bar) noexcept;

// The control's button for `button`. `position`: among the windows of the bar; -1 for the end.
void InsertToolbarButton(SecondaryTaskbar& bar, TaskButton& button, int position) noexcept;
void DeleteToolbarButton(SecondaryTaskbar& bar, const TaskButton& button) noexcept;
void ShowButtonText(SecondaryTaskbar& bar, const TaskButton& button) noexcept;

// Lays the control and its buttons out: after every change of their number, of the bar's size, or of its rows.
void SizeButtons(SecondaryTaskbar& bar) noexcept;

// The checked button is that of the active window. `except` may be null.
void UncheckOtherButtons(SecondaryTaskbar& bar, const TaskButton* except) noexcept;
void CheckButton(SecondaryTaskbar& bar, const TaskButton& button) noexcept;

// Looks for the window's icon, which its buttons on all bars get when it is found.
void GiveButtonIcon(HWND window) noexcept;

// The button at a point in screen coordinates, counted in toolbar entries; negative where there is none.
int HitTestButtons(const SecondaryTaskbar& bar, POINT point) noexcept;

// A click on `button`, or beside all buttons: minimises the active window, activates another one.
void OnButtonClick(SecondaryTaskbar& bar, TaskButton* button) noexcept;
// A right click on an entry: opens the system menu of its window there.
void OnButtonMenu(const SecondaryTaskbar& bar, int entry, POINT point) noexcept;

// Where a window shrinks to when it is minimised, in screen coordinates; false when the bar isn't the place for it.
bool MinimiseRect(const SecondaryTaskbar& bar, HWND window, RECT& place) noexcept;

// NM_CUSTOMDRAW. False: the platform draws, and answers.
bool DrawButton(SecondaryTaskbar& bar, const NMTBCUSTOMDRAW& drawing, LRESULT& result) noexcept;

}  // namespace halyard
