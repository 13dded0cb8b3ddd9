// A bar's toolbar control: its buttons, what they show, and where they stand. On the server's thread.
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
// The mark of a window that asks for attention.
void MarkButton(SecondaryTaskbar& bar, const TaskButton& button, bool mark) noexcept;
bool IsChecked(const SecondaryTaskbar& bar, const TaskButton& button) noexcept;

// Looks for the window's icon. When one is found, the window's buttons on all bars get it.
void GiveButtonIcon(HWND window) noexcept;

// The button's place in its toolbar.
bool ButtonRect(const SecondaryTaskbar& bar, const TaskButton& button, RECT& place) noexcept;

// Fills the tip of a button whose title doesn't fit in it.
void GiveTip(const SecondaryTaskbar& bar, NMTBGETINFOTIPW& tip) noexcept;

// The entry at a point in screen coordinates; negative where there is none.
int HitTestButtons(const SecondaryTaskbar& bar, POINT point) noexcept;
// The button of an entry; null where there is none.
const TaskButton* ButtonOfEntry(const SecondaryTaskbar& bar, int entry) noexcept;

// Where a window shrinks to when it is minimised, in screen coordinates. False, and `place` as it was: the bar isn't
// the place for it.
bool MinimiseRect(const SecondaryTaskbar& bar, HWND window, RECT& place) noexcept;

}  // namespace halyard
