#include "desktops/window_snapshot.h"

#include "desktops/hidden_mark.h"
#include "desktops/window_desktop_map.h"
#include "process/shared_section.h"

namespace halyard {

namespace {

SeenWindow See(HWND window, HWND owner, DesktopId recorded) noexcept {
    const auto style = static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE));
    SeenWindow seen;
    seen.key = HandleBits(window);
    seen.owner = HandleBits(owner);
    seen.recorded = recorded;
    seen.visible = (style & WS_VISIBLE) != 0;
    seen.enabled = (style & WS_DISABLED) == 0;
    seen.minimised = (style & WS_MINIMIZE) != 0;
    seen.marked = IsMarkedHidden(window);
    seen.activatable = (GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_NOACTIVATE) == 0;
    windowDesktopMap.NoteSeen(seen.key, seen.visible);
    seen.showAsked = windowDesktopMap.Asked(seen.key) == Request::Show;
    return seen;
}

BOOL CALLBACK AddIfRelevant(HWND window, LPARAM row) noexcept {
    HWND owner = GetWindow(window, GW_OWNER);
    const DesktopId recorded = windowDesktopMap.DesktopOfWindow(window);
    // Each question costs a call of the platform, and most windows of a desktop are of no interest.
    if (owner || recorded != NoDesktop) reinterpret_cast<SeenRow*>(row)->Add(See(window, owner, recorded));
    return TRUE;
}

}  // namespace

SeenRow SeeWindows() noexcept {
    SeenRow windows;
    EnumWindows(AddIfRelevant, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

SeenRow SeeWithOwners(HWND window) noexcept {
    constexpr unsigned Depth = 16;  // owners can't form a ring, but they change under our feet
    SeenRow chain;
    while (window && chain.Count() < Depth) {
        HWND owner = GetWindow(window, GW_OWNER);
        chain.Add(See(window, owner, windowDesktopMap.DesktopOfWindow(window)));
        window = owner;
    }
    return chain;
}

}  // namespace halyard
