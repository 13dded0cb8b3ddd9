// What a switch does with the windows that it finds, decided on plain values.
#pragma once

#include "desktops/window_order.h"
#include "process/protocol.h"

namespace halyard {

inline constexpr DesktopId NoDesktop = UnsavedDesktopId;  // of a window that belongs to no desktop

// One top-level window.
struct SeenWindow {
    WindowKey key = 0;
    WindowKey owner = 0;             // 0: none
    DesktopId recorded = NoDesktop;  // the desktop that the map has for it
    bool visible = false;
    bool enabled = true;
    bool minimised = false;
    bool activatable = true;
    bool marked = false;     // this system has hidden it
    bool showAsked = false;  // it was asked to show itself, and its program hasn't done so yet
};

// The windows of the desktop from the top down.
using SeenRow = Row<SeenWindow>;

// Null when there is none.
const SeenWindow* FindSeen(const SeenRow& windows, WindowKey key) noexcept;

// The desktop that the window goes with: its own, else that of the window that owns it. A window whose owner is
// disabled (a modal dialog) goes with the owner whatever its own is, so that neither is ever without the other.
DesktopId DesktopOf(const SeenRow& windows, const SeenWindow& window) noexcept;

enum class WindowChange { Nothing, Hide, Show };

// `desktop`: as `DesktopOf` gives it. A window that its program has hidden stays hidden. One that is still to follow an
// earlier request to show itself counts as visible.
WindowChange DecideChange(const SeenWindow& window, DesktopId desktop, DesktopId current) noexcept;

// Which of the windows in `order`, from the top down, gets the front: `remembered` if it can take it; if it is
// disabled, the uppermost window that it owns and that can; else the uppermost that can. 0: none.
WindowKey ChooseFront(const SeenRow& windows, const KeyRow& order, WindowKey remembered) noexcept;

}  // namespace halyard
