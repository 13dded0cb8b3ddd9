#include "taskbars/taskbar_manager.h"

#include "process/profile.h"
#include "settings/settings.h"
#include "taskbars/app_bar.h"
#include "taskbars/live_taskbars.h"
#include "taskbars/shell/tray_hook.h"
#include "taskbars/task_list.h"
#include "taskbars/taskbar_end.h"
#include "taskbars/taskbar_window.h"

#include <cstring>

namespace halyard {

namespace {

SecondaryTaskbar* TaskbarOf(HMONITOR display) noexcept {
    for (unsigned index = 0; index < TaskbarCount(); ++index)
        if (TaskbarAt(index).display == display) return &TaskbarAt(index);
    return nullptr;
}

bool HasPrimaryTaskbar(HMONITOR display) noexcept {
    return profile.monitorFromRect &&
           profile.monitorFromRect(&PrimaryTaskbarRect(), MONITOR_DEFAULTTONEAREST) == display;
}

void MakeTaskbar(DWORD index, HMONITOR display, const MONITORINFOEXA& info) noexcept {
    // It is in the list of bars before its window is made, since messages to the window look for it there.
    SecondaryTaskbar* bar = AddTaskbar();
    if (bar) InitTaskbar(*bar, index, display, info.rcMonitor);
}

BOOL CALLBACK SyncDisplay(HMONITOR display, HDC, RECT*, LPARAM counter) noexcept {
    MONITORINFOEXA info = {};
    info.cbSize = sizeof(info);
    profile.getMonitorInfo(display, &info);
    // A pseudo display, as mirror drivers have: it has no bar and doesn't count.
    if (std::strstr(info.szDevice, "DISPLAYV")) return TRUE;
    const DWORD index = ++*reinterpret_cast<DWORD*>(counter);
    SecondaryTaskbar* bar = TaskbarOf(display);
    const bool isPrimary = HasPrimaryTaskbar(display);
    if (isPrimary && bar) DestroyTaskbar(*bar);
    if (!isPrimary && !bar) MakeTaskbar(index, display, info);
    return TRUE;
}

BOOL CALLBACK ScanForBar(HWND window, LPARAM target) noexcept {
    auto* bar = reinterpret_cast<SecondaryTaskbar*>(target);
    if (!IsLive(bar)) return FALSE;
    ScanWindow(window, *bar);
    return TRUE;
}

}  // namespace

void SyncDisplays() noexcept {
    if (!settings.TaskbarsEnable() || !profile.enumDisplayMonitors || !profile.getMonitorInfo) return;
    DWORD counter = 0;
    profile.enumDisplayMonitors(nullptr, nullptr, SyncDisplay, reinterpret_cast<LPARAM>(&counter));
}

void FillTaskbars() noexcept {
    const TrayScan scan;
    for (unsigned index = 0; index < TaskbarCount(); ++index)
        EnumWindows(ScanForBar, reinterpret_cast<LPARAM>(&TaskbarAt(index)));
}

}  // namespace halyard
