// Which sent messages the hooks look at.
#pragma once

#include <array>

namespace halyard {

inline constexpr unsigned InterestLimit = 576;  // no message at or above it is looked at

inline constexpr unsigned InterestingMessages[] = {
    1,    // WM_CREATE
    2,    // WM_DESTROY
    6,    // WM_ACTIVATE
    26,   // WM_SETTINGCHANGE
    71,   // WM_WINDOWPOSCHANGED
    125,  // WM_STYLECHANGED
    126,  // WM_DISPLAYCHANGE
    132,  // WM_NCHITTEST
    133,  // WM_NCPAINT
    134,  // WM_NCACTIVATE
    279,  // WM_INITMENUPOPUP
    561,  // WM_ENTERSIZEMOVE
};

inline constexpr auto interestTable = [] {
    std::array<bool, InterestLimit> table = {};
    for (unsigned message : InterestingMessages)
        table[message] = true;
    return table;
}();

constexpr bool IsInteresting(unsigned message) noexcept {
    return message < InterestLimit && interestTable[message];
}

}  // namespace halyard
