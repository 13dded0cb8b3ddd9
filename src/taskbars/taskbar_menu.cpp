#include "taskbars/taskbar_menu.h"

#include "common/window_text.h"
#include "config/config_dialog.h"
#include "process/profile.h"
#include "resources/resource_ids.h"
#include "settings/settings.h"
#include "settings/store.h"
#include "taskbars/button_clicks.h"
#include "taskbars/docking.h"
#include "taskbars/live_taskbars.h"
#include "taskbars/overflow.h"
#include "taskbars/taskbar_end.h"

#include <shellapi.h>

namespace halyard {

namespace {

void SetCheck(HMENU menu, UINT command, bool checked) noexcept {
    MENUITEMINFOA item = {};
    item.cbSize = sizeof(item);
    item.fMask = MIIM_STATE;
    item.fState = checked ? MFS_CHECKED : MFS_UNCHECKED;
    SetMenuItemInfoA(menu, command, FALSE, &item);
}

// In memory only: the bars come back with the next reading of the settings.
void Close() noexcept {
    DestroyAllTaskbars();
    settings.SetTaskbarsEnable(false);
}

void ToggleAutohide(SecondaryTaskbar& bar) noexcept {
    SetAutohide(bar, !bar.autohide);
    WriteIndexedValue(bar.displayIndex, AutohideValue, bar.autohide);
}

void ToggleLocked(SecondaryTaskbar& bar) noexcept {
    bar.shape.locked = !bar.shape.locked;
    WriteIndexedValue(bar.displayIndex, LockedValue, bar.shape.locked);
    ApplyTaskbarRect(bar, true, true);
}

void ToggleOnTop(SecondaryTaskbar& bar) noexcept {
    bar.onTop = !bar.onTop;
    WriteIndexedValue(bar.displayIndex, OnTopValue, bar.onTop);
    bar.raised = false;
    SetRaised(bar, false);
}

// Of the windows whose buttons don't fit. The chosen one comes to the front.
void ShowOverflow(SecondaryTaskbar& bar) noexcept {
    const Menu menu(CreatePopupMenu());
    Row<HWND> windows;
    for (const TaskButton* button : bar.buttons) {
        if (FitsOnBar(bar, *button)) continue;
        windows.Add(button->window);
        const TextBuffer title = Narrow(button->text.Text());
        AppendMenuText(menu.get(), MF_STRING, windows.Count(), WithoutMenuMarks(title.Text()).Text());
    }
    if (windows.Count() == 0) return;
    RECT place = {};
    GetWindowRect(bar.more, &place);
    bar.busy = true;
    SetForegroundWindow(bar.window);
    const int chosen = TrackPopupMenuEx(menu.get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTALIGN | TPM_BOTTOMALIGN,
                                        place.right, place.top, bar.window, nullptr);
    if (IsLive(&bar)) bar.busy = false;
    if (chosen > 0) BringTaskToFront(windows[static_cast<unsigned>(chosen) - 1]);
}

}  // namespace

void ShowTaskbarMenu(SecondaryTaskbar& bar) noexcept {
    const Menu menu(LoadMenuA(profile.moduleInstance, MAKEINTRESOURCEA(IDM_TASKBAR)));
    HMENU popup = GetSubMenu(menu.get(), 0);
    const POINT where = PointOf(static_cast<LPARAM>(GetMessagePos()));
    SetCheck(popup, IDC_LOCK_TASKBAR, bar.shape.locked);
    SetCheck(popup, IDC_AUTOHIDE, bar.autohide);
    SetCheck(popup, IDC_ON_TOP, bar.onTop);
    bar.busy = true;
    // A menu of a window that isn't active would stay when the user clicks elsewhere.
    SetForegroundWindow(bar.window);
    TrackPopupMenuEx(popup, TPM_NONOTIFY, where.x, where.y, bar.window, nullptr);
    if (IsLive(&bar)) bar.busy = false;
}

bool RunTaskbarCommand(SecondaryTaskbar& bar, UINT command) noexcept {
    switch (command) {
    case IDC_CLOSE_TASKBARS: Close(); return true;
    case IDC_AUTOHIDE: ToggleAutohide(bar); return true;
    case IDC_LOCK_TASKBAR: ToggleLocked(bar); return true;
    case IDC_ON_TOP: ToggleOnTop(bar); return true;
    case IDC_TASKBAR_PROPERTIES: OpenConfigDialog(TaskbarsPage); return true;
    case IDC_MORE_TASKS: ShowOverflow(bar); return true;
    case IDC_TASK_MANAGER: ShellExecuteA(nullptr, "open", "taskmgr.exe", nullptr, nullptr, SW_SHOWNORMAL); return false;
    }
    return false;
}

}  // namespace halyard
