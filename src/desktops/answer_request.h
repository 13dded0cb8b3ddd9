// Learns when the program of a window has done all that it was asked so far, without waiting for it.
#pragma once

#include "common/win_types.h"

namespace halyard {

// One request at a time; a later one replaces it. On one thread. The two questions let sent messages in.
void RequestAnswer(HWND window) noexcept;
bool HasAnswered() noexcept;
bool AwaitAnswer(DWORD limit) noexcept;  // ms

// Whether the platform counts the window's program as hung: it hasn't looked for messages for seconds.
bool IsHung(HWND window) noexcept;

}  // namespace halyard
