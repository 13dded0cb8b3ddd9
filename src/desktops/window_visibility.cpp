#include "desktops/window_visibility.h"

namespace halyard {

namespace {

BOOL CALLBACK AddIfOwned(HWND window, LPARAM row) noexcept {
    if (GetWindow(window, GW_OWNER) && IsWindowVisible(window)) reinterpret_cast<WindowRow*>(row)->Add(window);
    return TRUE;
}

}  // namespace

void PopupSnapshot::CollectOwned(HWND owner, WindowRow& popups) noexcept {
    if (!taken) EnumWindows(AddIfOwned, reinterpret_cast<LPARAM>(&owned));
    taken = true;
    for (HWND popup : owned)
        if (Owns(owner, popup)) popups.Add(popup);
}

bool Owns(HWND owner, HWND window) noexcept {
    // Owners can't form a ring, but the windows change under our feet.
    constexpr int Depth = 16;
    for (int step = 0; step < Depth && window; ++step) {
        window = GetWindow(window, GW_OWNER);
        if (window == owner) return true;
    }
    return false;
}

}  // namespace halyard
