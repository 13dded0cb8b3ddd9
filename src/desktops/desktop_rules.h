// Decisions about desktops and their windows, on plain values.
#pragma once

namespace halyard {

// The desktop id that the name of a stored subkey gives; 0 for a name that isn't the plain decimal form of a number
// above 0 and below 0x40000000. That bit marks hotkey actions of desktops, so no id may have it.
unsigned DesktopIdOfKey(const char* name) noexcept;

// The position after (`step` 1) or before (`step` -1) `position` in a list of `count`; the ends are joined.
constexpr unsigned Neighbour(unsigned position, unsigned count, int step) noexcept {
    return (position + count + static_cast<unsigned>(step)) % count;
}

}  // namespace halyard
