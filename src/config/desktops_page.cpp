#include "common/handles.h"
#include "common/list_view.h"
#include "common/row.h"
#include "config/page_messages.h"
#include "config/pages.h"
#include "config/sheet.h"
#include "config/sheet_controls.h"
#include "config/wallpaper_dialog.h"
#include "desktops/background.h"
#include "desktops/desktop_list.h"
#include "desktops/desktop_switch.h"
#include "hotkeys/hotkeys.h"
#include "process/broadcasts.h"
#include "process/profile.h"
#include "process/server_call.h"
#include "process/shared_section.h"
#include "process/strings.h"
#include "process/window_long.h"
#include "resources/resource_ids.h"
#include "settings/settings.h"

#include <commctrl.h>
#include <memory>
#include <prsht.h>

namespace halyard {

namespace {

// Saved desktops whose rows the user has taken away since the last Apply, in that order.
Row<DesktopId> pendingRemovals;

constexpr WPARAM NameLimit = 256;  // characters of a name as it is typed

HWND ListOf(HWND page) noexcept {
    return GetDlgItem(page, IDC_DESKTOP_LIST);
}

DesktopId RowId(HWND list, int row) noexcept {
    LPARAM value = 0;
    return ListValue(list, row, value) ? static_cast<DesktopId>(value) : UnsavedDesktopId;
}

void EditRow(HWND list, int row) noexcept {
    PostMessageA(list, LVM_EDITLABELA, static_cast<WPARAM>(row), 0);
}

void ShowHint(HWND page, bool shown) noexcept {
    for (const int control : {IDC_MENU_HINT_ICON, IDC_MENU_HINT})
        ShowWindow(GetDlgItem(page, control), shown ? SW_SHOWNA : SW_HIDE);
}

void ApplyButtonRules(HWND page) noexcept {
    HWND list = ListOf(page);
    const int row = SelectedListRow(list);
    const auto buttons = ButtonsOfDesktop(CurrentPageState(), IsChecked(page, IDC_MULTI_DESK), row >= 0,
                                          RowId(list, row), CurrentDesktopId());
    EnableControl(page, IDC_REMOVE_DESKTOP, buttons.remove);
    EnableControl(page, IDC_ACTIVATE_DESKTOP, buttons.activate);
    EnableControl(page, IDC_WALLPAPER, buttons.wallpaper);
}

void ApplyPageRules(HWND page) noexcept {
    const auto enables = EnablesOfDesktopsPage(CurrentPageState(), IsChecked(page, IDC_MULTI_DESK));
    EnableControl(page, IDC_MULTI_DESK, enables.multiDesk);
    EnableControl(page, IDC_DESKTOP_LIST, enables.list);
    EnableControl(page, IDC_ADD_DESKTOP, enables.add);
    ApplyButtonRules(page);
}

void MarkCurrentDesktop(HWND page) noexcept {
    HWND list = ListOf(page);
    const TextBuffer mark = LookupText(IDS_CURRENT_DESKTOP);
    for (int row = ListRowCount(list) - 1; row >= 0; --row)
        SetListText(list, row, 1, RowId(list, row) == CurrentDesktopId() ? mark.Text() : "");
}

void ShowState(HWND page) noexcept {
    MarkCurrentDesktop(page);
    ApplyPageRules(page);
}

void FillRows(HWND list) noexcept {
    const unsigned count = desktopList.Count();
    for (unsigned index = 0; index < count; ++index) {
        const DesktopId id = desktopList.IdAt(index);
        InsertListRow(list, static_cast<int>(index), desktopList.NameAt(index).Text(),
                      id == DefaultDesktopId ? DefaultDesktopImage : DesktopImage, static_cast<LPARAM>(id));
    }
}

INT_PTR OnInit(HWND page) noexcept {
    HWND list = ListOf(page);
    GiveListImages(list);
    UseWideText(list);
    RECT client = {};
    GetClientRect(list, &client);
    const int markWidth = client.right / 4;
    InsertListColumn(list, 0, LookupText(IDS_COLUMN_DESKTOP).Text(), client.right - markWidth);
    InsertListColumn(list, 1, "", markWidth);
    FillRows(list);
    pendingRemovals.Clear();
    SetCheck(page, IDC_MULTI_DESK, settings.MultiDesk());
    SendDlgItemMessageA(page, IDC_MENU_HINT_ICON, STM_SETICON,
                        reinterpret_cast<WPARAM>(LoadIconA(nullptr, IDI_WARNING)), 0);
    ShowState(page);
    AddPage(DesktopsPage, page);
    ShowHint(page, settings.MultiDesk() && !settings.ExtendSysMenu());
    if (sheet.canEdit) return 0;
    WriteWindowLong(list, GWL_STYLE, ReadWindowLong(list, GWL_STYLE) & ~static_cast<DWORD>(LVS_EDITLABELS));
    return 1;
}

void OnMultiDesk(HWND page) noexcept {
    const bool checked = IsChecked(page, IDC_MULTI_DESK);
    EnableControl(page, IDC_DESKTOP_LIST, checked);
    EnableControl(page, IDC_ADD_DESKTOP, checked);
    ApplyButtonRules(page);
    PageChanged(page);
    if (checked) ShowHint(page, !settings.ExtendSysMenu());
}

bool HasRow(HWND list, const char* name) noexcept {
    const int count = ListRowCount(list);
    for (int row = 0; row < count; ++row)
        if (lstrcmpiA(ListText(list, row, 0).Text(), name) == 0) return true;
    return false;
}

void OnAdd(HWND page) noexcept {
    HWND list = ListOf(page);
    const TextBuffer format = LookupText(IDS_NEW_DESKTOP_NAME);
    char name[1025];  // the platform's limit for formatted text
    int number = 2;
    do
        wsprintfA(name, format.Text(), number++);
    while (HasRow(list, name));
    // Without an image of its own a row shows the first, that of an ordinary desktop.
    const int row = InsertListRow(list, ListRowCount(list), name, -1, static_cast<LPARAM>(UnsavedDesktopId));
    SetFocus(list);
    EditRow(list, row);
    PageChanged(page);
}

void OnRemove(HWND page) noexcept {
    HWND list = ListOf(page);
    const int row = SelectedListRow(list);
    if (row < 0) return;
    const DesktopId id = RowId(list, row);
    if (id != UnsavedDesktopId) pendingRemovals.Add(id);
    SendMessageA(list, LVM_DELETEITEM, static_cast<WPARAM>(row), 0);
    PageChanged(page);
    ApplyButtonRules(page);
}

void OnActivate(HWND page) noexcept {
    HWND list = ListOf(page);
    const int row = SelectedListRow(list);
    const DesktopId id = RowId(list, row);
    if (row < 0 || id == UnsavedDesktopId) return;
    Activate(id);
    ShowState(page);
}

// The platform's own panel sets the wallpaper of the desktop that is current; it is kept when that desktop is left.
bool OpenPanel() noexcept {
    using ShellExecuteFn = HINSTANCE(WINAPI*)(HWND, const char*, const char*, const char*, const char*, INT);
    constexpr INT_PTR LastError = 32;  // of the numbers that the call gives in the place of a handle
    const Library shell(LoadLibraryA("shell32.dll"));
    const auto shellExecute = EntryOf<ShellExecuteFn>(shell.get(), "ShellExecuteA");
    return shellExecute && reinterpret_cast<INT_PTR>(shellExecute(nullptr, "cplopen", "desk.cpl", nullptr, nullptr,
                                                                  SW_SHOWNORMAL)) > LastError;
}

void OnWallpaper(HWND page) noexcept {
    SendMessageA(page, WM_COMMAND, IDC_ACTIVATE_DESKTOP, 0);
    if (OpenPanel()) return;
    Desktop background(CurrentDesktopId(), "", 0);
    RunOnServerThread([&] { CaptureBackground(background); });
    if (ChooseBackground(GetParent(page), background))
        RunOnServerThread([&] {
            if (background.id == CurrentDesktopId())
                ApplyBackground(background);
            else
                desktopList.StoreBackground(background);
        });
}

void OnCommand(HWND page, int control) noexcept {
    switch (control) {
    case IDC_MULTI_DESK: OnMultiDesk(page); break;
    case IDC_ADD_DESKTOP: OnAdd(page); break;
    case IDC_REMOVE_DESKTOP: OnRemove(page); break;
    case IDC_ACTIVATE_DESKTOP: OnActivate(page); break;
    case IDC_WALLPAPER: OnWallpaper(page); break;
    }
}

// True: the label may not be edited. Else the name's length is limited.
bool OnBeginEdit(HWND page, const NMLVDISPINFOA& info) noexcept {
    HWND list = ListOf(page);
    if (RowId(list, info.item.iItem) == DefaultDesktopId) {
        SetWindowLongPtrA(page, DWLP_MSGRESULT, TRUE);
        return true;
    }
    HWND edit = reinterpret_cast<HWND>(SendMessageA(list, LVM_GETEDITCONTROL, 0, 0));
    SendMessageA(edit, EM_SETLIMITTEXT, NameLimit, 0);
    return false;
}

bool OnEndEdit(HWND page, const NMHDR& notice) noexcept {
    const TextBuffer text = EditedText(notice);
    if (text.IsEmpty()) return false;
    SetListText(ListOf(page), reinterpret_cast<const NMLVDISPINFOA&>(notice).item.iItem, 0, text.Text());
    PageChanged(page);
    return true;
}

void OnListKey(HWND page, WORD key) noexcept {
    HWND list = ListOf(page);
    const int row = SelectedListRow(list);
    if (key == VK_F2 && sheet.canEdit && row >= 0) EditRow(list, row);
}

INT_PTR OnListNotice(HWND page, const NMHDR& notice) noexcept {
    switch (notice.code) {
    case LVN_KEYDOWN: OnListKey(page, reinterpret_cast<const NMLVKEYDOWN&>(notice).wVKey); break;
    case LVN_BEGINLABELEDITA:
    case LVN_BEGINLABELEDITW:
        if (OnBeginEdit(page, reinterpret_cast<const NMLVDISPINFOA&>(notice))) return 1;
        break;
    case LVN_ENDLABELEDITA:
    case LVN_ENDLABELEDITW:
        if (OnEndEdit(page, notice)) return 1;
        break;
    }
    ApplyButtonRules(page);
    return 0;
}

// One row of the list on its way to the server's thread and, with its new id, back.
struct AppliedRow {
    TextBuffer name;
    DesktopId id = UnsavedDesktopId;
};

void ApplyRow(AppliedRow& row) noexcept {
    if (row.id != UnsavedDesktopId) {
        desktopList.Rename(row.id, row.name.Text());
        return;
    }
    row.id = desktopList.Add(row.name.Text(), UnsavedDesktopId);
    AddDesktopHotkeys(row.id, row.name.Text());
}

// The list and its stored form are brought in line without a pause. The windows come after that: while they are moved
// the server's thread lets messages in, and one of these may have it read the list and the settings anew.
void ApplyRows(AppliedRow* rows, int count, bool multiDesk) noexcept {
    for (const DesktopId id : pendingRemovals)
        RemoveDesktop(id);
    for (int row = 0; row < count; ++row)
        ApplyRow(rows[row]);
    desktopList.Save();
    SetMultiDesk(multiDesk);
    SettleWindows();
}

void OnApply(HWND page) noexcept {
    HWND list = ListOf(page);
    const int count = ListRowCount(list);
    const std::unique_ptr<AppliedRow[]> rows(new (std::nothrow) AppliedRow[static_cast<std::size_t>(count) + 1]);
    if (!rows) return;
    for (int row = 0; row < count; ++row)
        rows[static_cast<std::size_t>(row)] = {ListText(list, row, 0), RowId(list, row)};
    const bool multiDesk = IsChecked(page, IDC_MULTI_DESK);
    RunOnServerThread([&] { ApplyRows(rows.get(), count, multiDesk); });
    pendingRemovals.Clear();
    for (int row = 0; row < count; ++row)
        SetListValue(list, row, static_cast<LPARAM>(rows[static_cast<std::size_t>(row)].id));
    // Whether there are desktops at all is one of the settings.
    BroadcastSettings(SettingKind::Settings);
    BroadcastSettings(SettingKind::Desktops);
    ShowState(page);
}

INT_PTR OnNotify(HWND page, const NMHDR& notice) noexcept {
    if (notice.code == PSN_APPLY) OnApply(page);
    if (notice.code == PSN_SETACTIVE) MarkCurrentDesktop(page);
    return notice.idFrom == IDC_DESKTOP_LIST ? OnListNotice(page, notice) : 0;
}

}  // namespace

INT_PTR CALLBACK DesktopsPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = 0;
    if (HandleSharedMessage(page, message, wParam, lParam, result)) return result;
    switch (message) {
    case WM_INITDIALOG: return OnInit(page);
    case RefreshPageMessage: ShowState(page); break;
    case WM_COMMAND: OnCommand(page, LOWORD(wParam)); break;
    case WM_NOTIFY: return OnNotify(page, *reinterpret_cast<const NMHDR*>(lParam));
    }
    return 0;
}

}  // namespace halyard
