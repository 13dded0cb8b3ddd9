// Hiding and showing the windows of other programs with the popups that they own, without waiting for any program. The
// platform's own call for owned popups sends messages, so that one hung program would hold the whole switch up.
#pragma once

#include "common/row.h"
#include "common/win_types.h"

namespace halyard {

using WindowRow = Row<HWND>;

// The visible owned windows of the desktop at the moment of its first use; one serves for a whole sweep.
class PopupSnapshot {
public:
    // Adds to `popups` the windows that `owner` owns, directly or through others.
    void CollectOwned(HWND owner, WindowRow& popups) noexcept;

private:
    WindowRow owned;
    bool taken = false;
};

// Whether `owner` owns `window`, directly or through others.
bool Owns(HWND owner, HWND window) noexcept;

}  // namespace halyard
