// The rules of position that several behaviours share. On the window's own thread. An operation that can't read a
// rectangle or a display leaves the window where it is.
#pragma once

#include "common/win_types.h"

namespace halyard {

// Moves the window to the next display in order of handle, with its offset and size kept; a maximised one is maximised
// there. Or to the one with that number: nothing for one that doesn't exist, or where the window is already.
void MoveToNextDisplay(HWND window) noexcept;
void MoveToNumberedDisplay(HWND window, unsigned number) noexcept;

// Centre the window on a rectangle in screen coordinates, on its parent, or on a display's work area. With `move`, the
// structure of a WM_WINDOWPOSCHANGING under way, no window is moved: the structure is edited, and the move does the
// rest.
void CentreOnRect(HWND window, const RECT& target, WINDOWPOS* move) noexcept;
void CentreOnParent(HWND window, WINDOWPOS* move) noexcept;  // on the whole desktop without a parent
void CentreOnDisplay(HWND window, HMONITOR display, WINDOWPOS* move) noexcept;
void CentreOnOwnDisplay(HWND window, WINDOWPOS* move) noexcept;  // the display nearest the window itself
void CentreOnNumberedDisplay(HWND window, DWORD number, WINDOWPOS* move) noexcept;  // from 1, in the system's order

// False for no parent, the desktop, the shell's desktop window, and a hidden parent.
bool HasVisibleParent(HWND window) noexcept;

void SetTopmost(HWND window, bool topmost) noexcept;  // doesn't activate the window
void ToggleTopmost(HWND window) noexcept;             // does
bool IsTopmost(HWND window) noexcept;

// Whether a top-level window other than `window` has exactly this rectangle.
bool SameRectWindowExists(HWND window, const RECT& rect) noexcept;

// `rect` itself if it touches a display, else moved into the work area of the nearest one.
RECT WithinReach(const RECT& rect) noexcept;

}  // namespace halyard
