#include "behaviours/placement.h"

#include "common/rectangles.h"
#include "process/profile.h"
#include "process/window_long.h"

namespace halyard {

namespace {

// From the corner of the display to that of its work area; none for a window whose placement is in screen coordinates.
POINT WorkAreaOffset(HWND window, const RECT& rect) noexcept {
    if (!profile.placesFromWorkArea || !profile.monitorFromRect || !profile.getMonitorInfo) return {};
    if (ReadWindowLong(window, GWL_STYLE) & WS_CHILD || ReadWindowLong(window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW)
        return {};
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    if (!profile.getMonitorInfo(profile.monitorFromRect(&rect, MONITOR_DEFAULTTOPRIMARY), &info)) return {};
    return {info.rcWork.left - info.rcMonitor.left, info.rcWork.top - info.rcMonitor.top};
}

}  // namespace

RECT ToWorkspace(HWND window, const RECT& screen) noexcept {
    const POINT offset = WorkAreaOffset(window, screen);
    return Shifted(screen, -offset.x, -offset.y);
}

RECT FromWorkspace(HWND window, const RECT& workspace) noexcept {
    const POINT offset = WorkAreaOffset(window, workspace);
    return Shifted(workspace, offset.x, offset.y);
}

WINDOWPLACEMENT PlacementOf(HWND window) noexcept {
    WINDOWPLACEMENT placement = {};
    placement.length = sizeof(placement);
    GetWindowPlacement(window, &placement);
    placement.rcNormalPosition = FromWorkspace(window, placement.rcNormalPosition);
    return placement;
}

void SetPlacement(HWND window, WINDOWPLACEMENT placement) noexcept {
    placement.rcNormalPosition = ToWorkspace(window, placement.rcNormalPosition);
    SetWindowPlacement(window, &placement);
}

}  // namespace halyard
