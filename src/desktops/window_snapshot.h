// The windows of the moment, as the decisions about a switch need them. On the server's thread.
#pragma once

#include "common/win_types.h"
#include "desktops/switch_rules.h"

namespace halyard {

// All top-level windows that belong to a desktop or may belong to one through their owner, from the top down.
SeenRow SeeWindows() noexcept;

// One window, and after it those that own it.
SeenRow SeeWithOwners(HWND window) noexcept;

}  // namespace halyard
