// What a press of a hotkey does.
#pragma once

#include "common/win_types.h"

namespace halyard {

// WM_HOTKEY on the server window, with the atom in wParam. Nothing for an atom that no hotkey has.
void OnHotkeyPressed(HWND serverWindow, WPARAM atom) noexcept;

}  // namespace halyard
