// The command ids of the buttons of all secondary taskbars.
#pragma once

#include "common/win_types.h"

namespace halyard {

inline constexpr WORD FirstButtonId = 100;
inline constexpr unsigned ButtonIdCount = 4096;
// The id of every button that comes when no other is left. The toolbar can't tell such buttons apart.
inline constexpr WORD NoButtonId = 65535;
// Never handed out: the bar's menu has a command of that number, and the toolbar reports clicks as commands, too.
inline constexpr WORD MenuCommandId = 1043;

// One object in the server process, on its thread.
class ButtonIds {
public:
    ButtonIds() noexcept { Mark(MenuCommandId - FirstButtonId); }

    // The lowest one that is free, or `NoButtonId`.
    WORD Take() noexcept {
        for (unsigned bit = 0; bit < ButtonIdCount; ++bit) {
            if (taken[bit / 8] & (1U << bit % 8)) continue;
            Mark(bit);
            return static_cast<WORD>(FirstButtonId + bit);
        }
        return NoButtonId;
    }

    // An id that was never taken does no harm.
    void GiveBack(WORD id) noexcept {
        const unsigned bit = static_cast<unsigned>(id) - FirstButtonId;
        if (bit < ButtonIdCount && id != MenuCommandId) taken[bit / 8] &= static_cast<BYTE>(~(1U << bit % 8));
    }

private:
    void Mark(unsigned bit) noexcept { taken[bit / 8] |= static_cast<BYTE>(1U << bit % 8); }

    BYTE taken[ButtonIdCount / 8] = {};
};

}  // namespace halyard
