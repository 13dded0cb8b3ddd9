#include "displays/displays.h"

#include "common/handles.h"
#include "process/profile.h"
#include "process/shared_section.h"

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
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    if (!GetMonitorInfoA(display, &info)) return TRUE;
    return reinterpret_cast<DisplaySet*>(target)->Add(HandleBits(display), info.rcWork);
}

}  // namespace

void RefreshDisplays() noexcept {
    const Guard guard(table.lock.Section());
    DisplaySet fresh;
    if (profile.enumDisplayMonitors)
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
