#include "config/page_messages.h"
#include "config/pages.h"
#include "config/sheet.h"
#include "config/sheet_controls.h"
#include "displays/displays.h"
#include "process/broadcasts.h"
#include "process/profile.h"
#include "process/server_call.h"
#include "process/strings.h"
#include "resources/resource_ids.h"
#include "settings/choices.h"
#include "settings/settings.h"

#include <commctrl.h>
#include <initializer_list>
#include <prsht.h>

namespace halyard {

namespace {

int displayRows = 0;  // of the box, since it was filled

DialogChoice StoredChoice() noexcept {
    return {settings.DialogControl(), settings.DialogMonitor()};
}

void AddRow(HWND page, const char* text) noexcept {
    SendDlgItemMessageA(page, IDC_DIALOGS_WHERE, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
}

void FillDialogRows(HWND page) noexcept {
    AddRow(page, LookupText(IDS_DIALOG_ON_CURSOR_DISPLAY).Text());
    AddRow(page, LookupText(IDS_DIALOG_ON_APPLICATION_DISPLAY).Text());
    AddRow(page, LookupText(IDS_DIALOG_ON_APPLICATION_WINDOW).Text());
    displayRows = DisplayRows(static_cast<int>(CurrentDisplays().count), StoredChoice());
    const TextBuffer format = LookupText(IDS_DISPLAY_NUMBER);
    for (int number = 1; number <= displayRows; ++number) {
        char text[1025];  // the platform's limit for formatted text
        wsprintfA(text, format.Text(), number);
        AddRow(page, text);
    }
    SendDlgItemMessageA(page, IDC_DIALOGS_WHERE, CB_SETCURSEL, static_cast<WPARAM>(RowOfDialogChoice(StoredChoice())),
                        0);
}

void SetUpOpacity(HWND page) noexcept {
    HWND bar = GetDlgItem(page, IDC_OPACITY);
    SendMessageA(bar, TBM_SETRANGE, TRUE, MAKELPARAM(0, 100));
    SendMessageA(bar, TBM_SETTICFREQ, 10, 0);
    SendMessageA(bar, TBM_SETTIPSIDE, TBTS_TOP, 0);
    SendMessageA(bar, TBM_SETPOS, TRUE, static_cast<LPARAM>(settings.DragTransPerCent()));
}

void ApplyEnableRules(HWND page) noexcept {
    const auto enables = EnablesOfWindowsPage(CurrentPageState(), IsChecked(page, IDC_MAXIMISE_ACROSS),
                                              IsChecked(page, IDC_DIALOGS_CENTRED), profile.isNtFamily,
                                              IsChecked(page, IDC_TRANSPARENCY));
    for (const int control : {IDC_SYSTEM_MENU, IDC_WINDOW_MEMORY, IDC_MAXIMISE_ACROSS, IDC_AUTODOCK,
                              IDC_DIALOGS_DEFAULT, IDC_DIALOGS_CENTRED})
        EnableControl(page, control, enables.choices);
    EnableControl(page, IDC_WITH_CONTROL, enables.withControl);
    EnableControl(page, IDC_DIALOGS_WHERE, enables.dialogWhere);
    EnableControl(page, IDC_TRANSPARENCY, enables.transparency);
    for (const int control : {IDC_OPACITY, IDC_OPACITY_LOW, IDC_OPACITY_HIGH})
        EnableControl(page, control, enables.opacity);
}

INT_PTR OnInit(HWND page) noexcept {
    SetCheck(page, IDC_SYSTEM_MENU, settings.ExtendSysMenu());
    SetCheck(page, IDC_WINDOW_MEMORY, settings.WindowMem());
    SetCheck(page, IDC_AUTODOCK, settings.Autodock());
    const MaximiseChecks maximise = ChecksOfMaximise(settings.CtrlMax());
    SetCheck(page, IDC_MAXIMISE_ACROSS, maximise.across);
    SetCheck(page, IDC_WITH_CONTROL, maximise.withControl);
    FillDialogRows(page);
    SetCheck(page, settings.DialogControl() == DialogsAsTheyCome ? IDC_DIALOGS_DEFAULT : IDC_DIALOGS_CENTRED, true);
    SetCheck(page, IDC_TRANSPARENCY, settings.DragTrans());
    SetUpOpacity(page);
    ApplyEnableRules(page);
    AddPage(WindowsPage, page);
    return 1;
}

// A click on the radio button that is chosen already changes nothing.
void SetDialogWhere(HWND page, bool enabled) noexcept {
    HWND where = GetDlgItem(page, IDC_DIALOGS_WHERE);
    if ((IsWindowEnabled(where) != FALSE) == enabled) return;
    EnableWindow(where, enabled);
    PageChanged(page);
}

void OnCommand(HWND page, int control, int code) noexcept {
    switch (control) {
    case IDC_MAXIMISE_ACROSS:
        EnableControl(page, IDC_WITH_CONTROL, IsChecked(page, IDC_MAXIMISE_ACROSS));
        PageChanged(page);
        break;
    case IDC_AUTODOCK:
    case IDC_WINDOW_MEMORY:
    case IDC_WITH_CONTROL:
    case IDC_SYSTEM_MENU: PageChanged(page); break;
    case IDC_DIALOGS_DEFAULT: SetDialogWhere(page, false); break;
    case IDC_DIALOGS_CENTRED: SetDialogWhere(page, true); break;
    case IDC_DIALOGS_WHERE:
        if (code == CBN_SELCHANGE) PageChanged(page);
        break;
    case IDC_TRANSPARENCY:
        ApplyEnableRules(page);
        PageChanged(page);
        break;
    }
}

DialogChoice ChosenDialogs(HWND page) noexcept {
    if (IsChecked(page, IDC_DIALOGS_DEFAULT)) return {0, 0};
    return DialogChoiceOfRow(static_cast<int>(SendDlgItemMessageA(page, IDC_DIALOGS_WHERE, CB_GETCURSEL, 0, 0)),
                             displayRows);
}

// The settings belong to the server's thread, which may read them anew at any time; the controls are read here.
void OnApply(HWND page) noexcept {
    const bool windowMemory = IsChecked(page, IDC_WINDOW_MEMORY);
    const bool systemMenu = IsChecked(page, IDC_SYSTEM_MENU);
    const bool autodock = IsChecked(page, IDC_AUTODOCK);
    const MaximiseChecks maximise = {IsChecked(page, IDC_MAXIMISE_ACROSS), IsChecked(page, IDC_WITH_CONTROL)};
    const DialogChoice choice = ChosenDialogs(page);
    const bool transparency = IsChecked(page, IDC_TRANSPARENCY);
    const auto opacity = static_cast<DWORD>(SendDlgItemMessageA(page, IDC_OPACITY, TBM_GETPOS, 0, 0));
    RunOnServerThread([&] {
        settings.SetWindowMem(windowMemory);
        settings.SetExtendSysMenu(systemMenu);
        settings.SetCtrlMax(MaximiseOfChecks(maximise));
        settings.SetAutodock(autodock);
        settings.SetDialogControl(choice.control, choice.display);
        settings.SetDragTrans(transparency);
        settings.SetDragTransPerCent(opacity);
        settings.Save();
    });
    BroadcastSettings(SettingKind::Settings);
}

}  // namespace

INT_PTR CALLBACK WindowsPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = 0;
    if (HandleSharedMessage(page, message, wParam, lParam, result)) return result;
    switch (message) {
    case WM_INITDIALOG: return OnInit(page);
    case RefreshPageMessage: ApplyEnableRules(page); break;
    case WM_COMMAND: OnCommand(page, LOWORD(wParam), HIWORD(wParam)); break;
    case WM_HSCROLL: PageChanged(page); break;
    case WM_NOTIFY:
        if (reinterpret_cast<const NMHDR*>(lParam)->code == PSN_APPLY) OnApply(page);
        break;
    }
    return 0;
}

}  // namespace halyard
