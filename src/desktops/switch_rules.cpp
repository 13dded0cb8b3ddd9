#include "desktops/switch_rules.h"

namespace halyard {

namespace {

// Owners can't form a ring, but the row is of several moments.
constexpr int OwnerDepth = 16;

bool CanTakeFront(const SeenWindow& window) noexcept {
    return window.enabled && !window.minimised && window.activatable;
}

bool Owns(const SeenRow& windows, WindowKey owner, const SeenWindow& window) noexcept {
    const SeenWindow* at = &window;
    for (int step = 0; step < OwnerDepth && at; ++step) {
        if (at->owner == owner) return true;
        at = FindSeen(windows, at->owner);
    }
    return false;
}

DesktopId DesktopWithin(const SeenRow& windows, const SeenWindow& window, int depth) noexcept {
    const SeenWindow* owner = window.owner && depth > 0 ? FindSeen(windows, window.owner) : nullptr;
    if (!owner) return window.recorded;
    if (owner->enabled && window.recorded != NoDesktop) return window.recorded;
    const DesktopId ofOwner = DesktopWithin(windows, *owner, depth - 1);
    return ofOwner == NoDesktop ? window.recorded : ofOwner;
}

}  // namespace

const SeenWindow* FindSeen(const SeenRow& windows, WindowKey key) noexcept {
    if (key == 0) return nullptr;
    for (const SeenWindow& window : windows)
        if (window.key == key) return &window;
    return nullptr;
}

DesktopId DesktopOf(const SeenRow& windows, const SeenWindow& window) noexcept {
    return DesktopWithin(windows, window, OwnerDepth);
}

WindowChange DecideChange(const SeenWindow& window, DesktopId desktop, DesktopId current) noexcept {
    if (desktop == current || desktop == AllDesktopsId || desktop == NoDesktop)
        return window.marked ? WindowChange::Show : WindowChange::Nothing;
    return window.visible || window.showAsked ? WindowChange::Hide : WindowChange::Nothing;
}

WindowKey ChooseFront(const SeenRow& windows, const KeyRow& order, WindowKey remembered) noexcept {
    const SeenWindow* front = order.Has(remembered) ? FindSeen(windows, remembered) : nullptr;
    if (front && CanTakeFront(*front)) return remembered;
    WindowKey uppermost = 0;
    for (const WindowKey key : order) {
        const SeenWindow* window = FindSeen(windows, key);
        if (!window || !CanTakeFront(*window)) continue;
        if (!front || front->enabled || Owns(windows, remembered, *window)) return key;
        if (!uppermost) uppermost = key;
    }
    return uppermost;
}

}  // namespace halyard
