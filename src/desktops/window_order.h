// The order of windows from the top of the screen down, and how it is put right. Windows are plain numbers here.
#pragma once

#include "common/row.h"

namespace halyard {

using WindowKey = unsigned;  // the 32 significant bits of a window's handle; never 0
using KeyRow = Row<WindowKey>;

KeyRow CopyOf(const KeyRow& keys) noexcept;

// Those of `keys` that `chosen` has, in the order of `keys`.
KeyRow Intersection(const KeyRow& keys, const KeyRow& chosen) noexcept;

struct ListedWindow {
    WindowKey key;
    WindowKey owner;  // 0: none
};

// The order that the windows of `present` should have: that of `remembered`, as far as there are any of these. A window
// that isn't remembered stands directly above its owner if it has one there, else below the nearest one that is above
// it in `present`, else second.
KeyRow WantedOrder(const Row<ListedWindow>& present, const KeyRow& remembered) noexcept;

// Moves the window to the top of `order`, with its owners and all that they own in the order that these have.
void RaiseGroup(KeyRow& order, const Row<ListedWindow>& present, WindowKey window) noexcept;

// The order of `present`, but with each of the `late` windows below the one that it follows in `wanted`.
KeyRow OrderWithLate(const KeyRow& present, const KeyRow& wanted, const KeyRow& late) noexcept;

struct Placement {
    WindowKey window;
    WindowKey above;  // the window that it belongs directly below; 0: at the top
};

// What turns the order `present` into the order `wanted` of the same windows, to be carried out one after the other:
// the longest run that is in order already stays where it is.
Row<Placement> PlacementsFor(const KeyRow& present, const KeyRow& wanted) noexcept;

}  // namespace halyard
