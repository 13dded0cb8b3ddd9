#include "displays/displays.h"

#include "common/handles.h"
#include "process/profile.h"
#include "process/shared_section.h"

#include <cstring>

namespace halyard {

namespace {

struct DisplayTable {
    Lock lock;
    DisplaySet displays;
    int captionHeight = 0;
    int edgeHeight = 0;
};

DisplayTable table;

BOOL CALLBACK AddDisplay(HMONITOR display, HDC, RECT*, LPARAM target) noexcept {
    MONITORINFOEXA info = {};
    info.cbSize = sizeof(info);
    if (!profile.getMonitorInfo(display, &info)) return TRUE;
    // A pseudo display, as mirror drivers have, shows nothing of its own: it isn't one for the user.
    if (std::strstr(info.szDevice, "DISPLAYV")) return TRUE;
    return reinterpret_cast<DisplaySet*>(target)->Add({.handle = HandleBits(display),
                                                       .bounds = info.rcMonitor,
                                                       .workArea = info.rcWork,
                                                       .isPrimary = (info.dwFlags & MONITORINFOF_PRIMARY) != 0});
}

}  // namespace

void RefreshDisplays() noexcept {
    const Guard guard(table.lock.Section());
    DisplaySet fresh;
    if (profile.enumDisplayMonitors && profile.getMonitorInfo)
        profile.enumDisplayMonitors(nullptr, nullptr, AddDisplay, reinterpret_cast<LPARAM>(&fresh));
    else
        fresh.workBounds = table.displays.workBounds;
    table.displays = fresh;
    table.captionHeight = GetSystemMetrics(SM_CYCAPTION);
    table.edgeHeight = GetSystemMetrics(SM_CYEDGE);
}

DisplaySet CurrentDisplays() noexcept {
    const Guard guard(table.lock.Section());
    return table.displays;
}

RECT WorkBounds() noexcept {
    const Guard guard(table.lock.Section());
    return table.displays.workBounds;
}

int CascadeStep() noexcept {
    const Guard guard(table.lock.Section());
    return table.captionHeight + table.edgeHeight;
}

}  // namespace halyard
