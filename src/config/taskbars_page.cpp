#include "config/page_messages.h"
#include "config/pages.h"
#include "config/sheet.h"
#include "config/sheet_controls.h"
#include "process/broadcasts.h"
#include "process/server_call.h"
#include "process/shared_section.h"
#include "resources/resource_ids.h"
#include "settings/settings.h"

#include <commctrl.h>
#include <initializer_list>
#include <prsht.h>

namespace halyard {

namespace {

void ApplyEnableRules(HWND page) noexcept {
    const auto enables = EnablesOfTaskbarsPage(CurrentPageState(), IsChecked(page, IDC_TASKBARS));
    EnableControl(page, IDC_TASKBARS, enables.choices);
    EnableControl(page, IDC_MIRROR, enables.choices);
    for (const int control : {IDC_WHICH_TASKS, IDC_ALL_TASKS, IDC_OWN_TASKS})
        EnableControl(page, control, enables.whichTasks);
}

void OnInit(HWND page) noexcept {
    SetCheck(page, IDC_TASKBARS, settings.TaskbarsEnable());
    SetCheck(page, settings.TaskbarsShowAllTasks() ? IDC_ALL_TASKS : IDC_OWN_TASKS, true);
    SetCheck(page, IDC_MIRROR, settings.TaskswitchMirrorEnable());
    ApplyEnableRules(page);
    AddPage(TaskbarsPage, page);
}

void OnCommand(HWND page, int control) noexcept {
    switch (control) {
    case IDC_TASKBARS:
        ApplyEnableRules(page);
        PageChanged(page);
        break;
    case IDC_ALL_TASKS:
    case IDC_OWN_TASKS:
    case IDC_MIRROR: PageChanged(page); break;
    }
}

// The settings belong to the server's thread, which may read them anew at any time; the controls are read here.
void OnApply(HWND page) noexcept {
    const bool taskbars = IsChecked(page, IDC_TASKBARS);
    const bool allTasks = IsChecked(page, IDC_ALL_TASKS);
    const bool mirror = IsChecked(page, IDC_MIRROR);
    RunOnServerThread([&] {
        settings.SetTaskbarsEnable(taskbars);
        settings.SetTaskbarsShowAllTasks(allTasks);
        settings.SetTaskswitchMirrorEnable(mirror);
        settings.Save();
    });
    BroadcastSettings(SettingKind::Settings);
    PostMessageA(ServerWindow(), HM_REFRESH_EXTRAS, 0, 0);
}

}  // namespace

INT_PTR CALLBACK TaskbarsPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = 0;
    if (HandleSharedMessage(page, message, wParam, lParam, result)) return result;
    switch (message) {
    case WM_INITDIALOG: OnInit(page); break;
    case RefreshPageMessage: ApplyEnableRules(page); break;
    case WM_COMMAND: OnCommand(page, LOWORD(wParam)); break;
    case WM_NOTIFY:
        if (reinterpret_cast<const NMHDR*>(lParam)->code == PSN_APPLY) OnApply(page);
        break;
    }
    return 0;
}

}  // namespace halyard
