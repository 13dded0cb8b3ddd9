#include "taskbars/task_windows.h"

#include "behaviours/placement.h"
#include "common/rectangles.h"
#include "process/profile.h"
#include "settings/settings.h"

#include <cstring>

namespace halyard {

namespace {

bool IsToolWindow(HWND window) noexcept {
    return GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW;
}

bool HasTaskClass(HWND window) noexcept {
    char name[260] = {};
    GetClassNameA(window, name, sizeof(name));
    if (_stricmp(name, "wndclass_desked_gsk") == 0) return false;
    return settings.TaskbarsShowAllTasks() || _stricmp(name, "IDEOwner") != 0;
}

// Some programs give all their windows an owner that nobody sees.
bool HasVisibleOwner(HWND window) noexcept {
    HWND owner = GetWindow(window, GW_OWNER);
    if (!owner) return false;
    RECT place = {};
    GetWindowRect(owner, &place);
    return WidthOf(place) != 0 || HeightOf(place) != 0 || !IsToolWindow(owner);
}

}  // namespace

bool IsTaskWindow(HWND window) noexcept {
    // The desktop's own window is told of, too, where its program has the library.
    return window && window != GetDesktopWindow() && !GetParent(window) && IsWindowVisible(window) &&
           !IsToolWindow(window) && HasTaskClass(window) && !HasVisibleOwner(window);
}

bool IsOnDisplay(const SecondaryTaskbar& bar, HWND window) noexcept {
    if (!profile.monitorFromRect) return false;
    const RECT normal = PlacementOf(window).rcNormalPosition;
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    HMONITOR home = profile.monitorFromRect(&normal, MONITOR_DEFAULTTONEAREST);
    // Handles of displays change with the arrangement; what they stand for is told by the rectangle.
    return profile.getMonitorInfo(home, &info) && SameRect(info.rcMonitor, bar.displayRect);
}

}  // namespace halyard
