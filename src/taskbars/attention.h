// Buttons that flash because their windows ask for the user's attention. On the server's thread.
#pragma once

#include "taskbars/secondary_taskbar.h"

namespace halyard {

inline constexpr UINT_PTR FlashTimer = 123;  // of the bar's window: a step of its flashing buttons

// The window's button flashes a few times and stays marked until the window is active. Nothing without a button.
void FlashButton(SecondaryTaskbar& bar, HWND window) noexcept;
void StepFlashing(SecondaryTaskbar& bar) noexcept;
void StopFlashing(SecondaryTaskbar& bar, TaskButton& button) noexcept;

// Whether a program asked for attention while the window was on a hidden desktop, and hasn't had it yet.
bool WishesAttention(HWND window) noexcept;

}  // namespace halyard
