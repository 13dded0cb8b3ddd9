// What the shell is told and asked about bars that are docked at the edges of displays. On the server's thread. A shell
// that doesn't answer soon is not waited for.
#pragma once

#include "taskbars/secondary_taskbar.h"

#include <shellapi.h>

namespace halyard {

inline constexpr UINT AppBarCallback = 1315;     // from the shell to the bar; wParam: which notice
inline constexpr UINT_PTR AppBarTimer = 122;     // of the bar's window: time to try the shell again
inline constexpr UINT AppBarRetryPeriod = 1000;  // ms

// Tells the shell of the bar: one that doesn't hide is registered and reserves `place`, an auto-hide bar isn't
// registered. What the shell can't be told now is told by `RetryAppBar`.
void UpdateAppBar(SecondaryTaskbar& bar, const RECT& place) noexcept;
// At AppBarTimer: tells the shell again.
void RetryAppBar(SecondaryTaskbar& bar) noexcept;
// The shell has started anew, and knows nothing of the bar.
void RegisterAppBarAnew(SecondaryTaskbar& bar) noexcept;
// The bar's window has gone, and its space with it.
void ReleaseAppBar(SecondaryTaskbar& bar) noexcept;

// Notes where the shell's taskbar stands.
void ReadPrimaryTaskbarRect() noexcept;
// Where it stood then, in screen coordinates; empty if it was never read.
const RECT& PrimaryTaskbarRect() noexcept;

}  // namespace halyard
