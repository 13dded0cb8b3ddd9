#include "taskbars/taskbar_manager.h"

#include "common/rectangles.h"
#include "displays/displays.h"
#include "process/profile.h"
#include "process/shared_section.h"
#include "settings/settings.h"
#include "taskbars/app_bar.h"
#include "taskbars/docking.h"
#include "taskbars/live_taskbars.h"
#include "taskbars/shell/shell_tabs.h"
#include "taskbars/shell/tray_hook.h"
#include "taskbars/task_list.h"
#include "taskbars/taskbar_end.h"
#include "taskbars/taskbar_window.h"

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

void FollowDisplay(SecondaryTaskbar& bar, const RECT& bounds) noexcept {
    if (SameRect(bounds, bar.displayRect)) return;
    bar.displayRect = bounds;
    ApplyTaskbarRect(bar, true, true);
}

// Of displays that have gone.
void DropBars(const DisplaySet& set) noexcept {
    for (unsigned index = TaskbarCount(); index > 0; --index) {
        // More than one may have gone in one go.
        SecondaryTaskbar* bar = index <= TaskbarCount() ? &TaskbarAt(index - 1) : nullptr;
        if (bar && set.IndexOf(HandleBits(bar->display)) == DisplaySet::None) DestroyTaskbar(*bar);
    }
}

void SyncDisplay(const DisplaySet::Display& display) noexcept {
    const auto handle = HandleFromBits<HMONITOR>(display.handle);
    SecondaryTaskbar* bar = TaskbarOf(handle);
    const bool isPrimary = HasPrimaryTaskbar(handle);
    if (isPrimary && bar) DestroyTaskbar(*bar);
    if (!isPrimary && bar) FollowDisplay(*bar, display.bounds);
    if (isPrimary || bar) return;
    // It is in the list of bars before its window is made, since messages to the window look for it there.
    bar = AddTaskbar();
    if (bar) InitTaskbar(*bar, display.number, handle, display.bounds);
}

BOOL CALLBACK Collect(HWND window, LPARAM windows) noexcept {
    reinterpret_cast<Row<HWND>*>(windows)->Add(window);
    return TRUE;
}

// From the back to the front: a window that came later is in front of earlier ones as a rule, and gets a later button
// where the shell doesn't tell the order.
void FillTaskbar(SecondaryTaskbar& bar, const Row<HWND>& windows) noexcept {
    for (unsigned left = windows.Count(); left > 0 && IsLive(&bar); --left)
        ScanWindow(windows.At(left - 1), bar);
}

}  // namespace

void SyncDisplays() noexcept {
    if (!settings.TaskbarsEnable()) return;
    const DisplaySet set = CurrentDisplays();
    DropBars(set);
    for (unsigned number = 1; number <= set.count; ++number)
        SyncDisplay(*set.Numbered(number));
}

void FillTaskbars() noexcept {
    const TrayScan scan;
    Row<HWND> windows;
    EnumWindows(Collect, reinterpret_cast<LPARAM>(&windows));
    for (unsigned index = 0; index < TaskbarCount(); ++index)
        FillTaskbar(TaskbarAt(index), windows);
}

void CatchUpWithShell() noexcept {
    if (!TakeMissedTabs()) return;
    // Which calls they were isn't known any more.
    GiveTabsBack();
    FillTaskbars();
}

}  // namespace halyard
