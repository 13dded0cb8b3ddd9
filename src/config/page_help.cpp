#include "config/page_help.h"

#include "common/handles.h"
#include "config/sheet.h"
#include "process/profile.h"
#include "process/strings.h"
#include "process/window_long.h"
#include "resources/resource_ids.h"

#include <commctrl.h>

namespace halyard {

namespace {

struct HelpRow {
    int control;
    unsigned stringId;
};

constexpr HelpRow HelpRows[] = {
    {IDC_SYSTEM_MENU, IDS_HELP_SYSTEM_MENU},
    {IDC_WINDOW_MEMORY, IDS_HELP_WINDOW_MEMORY},
    {IDC_AUTODOCK, IDS_HELP_AUTODOCK},
    {IDC_MAXIMISE_ACROSS, IDS_HELP_MAXIMISE},
    {IDC_WITH_CONTROL, IDS_HELP_MAXIMISE},
    {IDC_DIALOGS_PICTURE, IDS_HELP_DIALOGS},
    {IDC_DIALOGS_DEFAULT, IDS_HELP_DIALOGS},
    {IDC_DIALOGS_CENTRED, IDS_HELP_DIALOGS},
    {IDC_DIALOGS_WHERE, IDS_HELP_DIALOGS},
    {IDC_DIALOGS_TEXT, IDS_HELP_DIALOGS},
    {IDC_DESKTOP_LIST, IDS_HELP_DESKTOP_LIST},
    {IDC_REMOVE_DESKTOP, IDS_HELP_REMOVE_DESKTOP},
    {IDC_ADD_DESKTOP, IDS_HELP_ADD_DESKTOP},
    {IDC_WALLPAPER, IDS_HELP_WALLPAPER},
    {IDC_ACTIVATE_DESKTOP, IDS_HELP_ACTIVATE_DESKTOP},
    {IDC_HOTKEY_LIST, IDS_HELP_ACTION_LIST},
    {IDC_SET_HOTKEY, IDS_HELP_HOTKEY_BOX},
    {IDC_HOTKEY_BOX, IDS_HELP_HOTKEY_BOX},
    {IDC_HOTKEY_LABEL, IDS_HELP_HOTKEY_BOX},
    {IDC_TRANSPARENCY, IDS_HELP_TRANSPARENCY},
    {IDC_OPACITY, IDS_HELP_TRANSPARENCY},
    {IDC_TASKBARS_PICTURE, IDS_HELP_TASKBARS},
    {IDC_TASKBARS, IDS_HELP_TASKBARS},
    {IDC_WHICH_TASKS, IDS_HELP_TASKBARS},
    {IDC_ALL_TASKS, IDS_HELP_TASKBARS},
    {IDC_OWN_TASKS, IDS_HELP_TASKBARS},
    {IDC_MIRROR_PICTURE, IDS_HELP_MIRROR},
    {IDC_MIRROR, IDS_HELP_MIRROR},
    {IDC_MULTI_DESK, IDS_HELP_MULTI_DESK},
};

// Why a control is grey while the user may change things and the system is on.
constexpr HelpRow GreyRows[] = {
    {IDC_WITH_CONTROL, IDS_GREY_MAXIMISE},   {IDC_DIALOGS_WHERE, IDS_GREY_DIALOGS},
    {IDC_TRANSPARENCY, IDS_GREY_SYSTEM},     {IDC_OPACITY, IDS_GREY_TRANSPARENCY},
    {IDC_ALL_TASKS, IDS_GREY_TASKBARS},      {IDC_OWN_TASKS, IDS_GREY_TASKBARS},
    {IDC_DESKTOP_LIST, IDS_GREY_MULTI_DESK}, {IDC_ADD_DESKTOP, IDS_GREY_MULTI_DESK},
    {IDC_REMOVE_DESKTOP, IDS_GREY_REMOVE},   {IDC_ACTIVATE_DESKTOP, IDS_GREY_ACTIVATE},
    {IDC_WALLPAPER, IDS_GREY_WALLPAPER},     {IDC_HOTKEY_BOX, IDS_GREY_HOTKEY_BOX},
    {IDC_SET_HOTKEY, IDS_GREY_SET_HOTKEY},
};

constexpr UINT HelpTool = 1;
constexpr int TipWidth = 300;  // pixels

WNDPROC oldTipProc = nullptr;
HWND focusBehindTip = nullptr;

int helpControl = 0;    // that the help menu was opened on
bool tipShown = false;  // whether there has been a popup

template <std::size_t Count>
unsigned StringOf(const HelpRow (&rows)[Count], int control, unsigned missing) noexcept {
    for (const HelpRow& row : rows)
        if (row.control == control) return row.stringId;
    return missing;
}

unsigned HelpIdOf(int control) noexcept {
    return StringOf(HelpRows, control, IDS_HELP_NONE);
}

unsigned GreyReason(int control) noexcept {
    const PageState state = CurrentPageState();
    if (!state.hooksInstalled) return IDS_GREY_OFF;
    if (!state.canEdit) return IDS_GREY_RIGHTS;
    return StringOf(GreyRows, control, IDS_GREY_OFF);
}

TextBuffer HelpOf(HWND page, int control) noexcept {
    TextBuffer text = LookupText(HelpIdOf(control));
    HWND window = GetDlgItem(page, control);
    if (!window || IsWindowEnabled(window)) return text;
    text.Append("\r\n\r\n");
    text.Append(LookupText(GreyReason(control)).Text());
    return text;
}

TTTOOLINFOA HelpToolInfo() noexcept {
    TTTOOLINFOA tool = {};
    tool.cbSize = TTTOOLINFOA_V2_SIZE;
    tool.uId = HelpTool;
    return tool;
}

void SendTool(UINT message, WPARAM wParam, TTTOOLINFOA& tool) noexcept {
    SendMessageA(sheet.tip, message, wParam, reinterpret_cast<LPARAM>(&tool));
}

void HideHelpTip() noexcept {
    if (!tipShown) return;
    TTTOOLINFOA tool = HelpToolInfo();
    SendTool(TTM_TRACKACTIVATE, FALSE, tool);
}

// The popup has the focus: the next key or click sends it away, as whatever else takes the focus does.
LRESULT CALLBACK HelpTipProc(HWND tip, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN: SetFocus(focusBehindTip); return 0;
    case WM_KILLFOCUS: HideHelpTip(); break;
    }
    return CallWindowProcA(oldTipProc, tip, message, wParam, lParam);
}

void ShowHelpTip(HWND page, int control) noexcept {
    TextBuffer text = HelpOf(page, control);
    TTTOOLINFOA tool = HelpToolInfo();
    const bool exists = SendMessageA(sheet.tip, TTM_GETTOOLINFOA, 0, reinterpret_cast<LPARAM>(&tool)) != 0;
    if (!exists) oldTipProc = SetWindowProc(sheet.tip, HelpTipProc);
    tool.uFlags = TTF_TRACK;
    tool.lpszText = text.Room();
    SendTool(exists ? TTM_SETTOOLINFOA : TTM_ADDTOOLA, 0, tool);
    SendMessageA(sheet.tip, TTM_SETMAXTIPWIDTH, 0, TipWidth);
    tipShown = true;
    // The last popup's end has turned the control off.
    SendMessageA(sheet.tip, TTM_ACTIVATE, TRUE, 0);
    SendMessageA(sheet.tip, TTM_TRACKPOSITION, 0, static_cast<LPARAM>(GetMessagePos()));
    SendTool(TTM_TRACKACTIVATE, TRUE, tool);
    const HWND focus = SetFocus(sheet.tip);
    if (focus != sheet.tip) focusBehindTip = focus;
}

// A click on a grey control comes to the page, or to the frame round the control; neither has help of its own.
HWND ControlAt(HWND page, POINT place, HWND clicked) noexcept {
    if (HelpIdOf(GetDlgCtrlID(clicked)) != IDS_HELP_NONE) return clicked;
    for (HWND child = GetWindow(page, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        RECT area = {};
        GetWindowRect(child, &area);
        if (PtInRect(&area, place) && IsWindowVisible(child) && HelpIdOf(GetDlgCtrlID(child)) != IDS_HELP_NONE)
            return child;
    }
    return clicked;
}

void ShowHelpMenu(HWND page, HWND control) noexcept {
    const DWORD position = GetMessagePos();
    const POINT place = {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
    helpControl = GetDlgCtrlID(ControlAt(page, place, control));
    if (helpControl < 1) return;
    const Menu menu(CreatePopupMenu());
    TextBuffer text = LookupText(IDS_WHATS_THIS);
    MENUITEMINFOA item = {};
    item.cbSize = sizeof(item);
    item.fMask = MIIM_STATE | MIIM_ID | MIIM_TYPE;
    item.fType = MFT_STRING;
    item.fState = MFS_DEFAULT;
    item.wID = IDM_WHATS_THIS;
    item.dwTypeData = text.Room();
    InsertMenuItemA(menu.get(), 0, TRUE, &item);
    TrackPopupMenu(menu.get(), 0, place.x, place.y, 0, page, nullptr);
}

void OnTipPopped() noexcept {
    if (!sheet.tip) return;
    SendMessageA(sheet.tip, TTM_POP, 0, 0);
    SendMessageA(sheet.tip, TTM_ACTIVATE, FALSE, 0);
}

}  // namespace

bool HandleHelpMessage(HWND page, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    switch (message) {
    case WM_CONTEXTMENU: ShowHelpMenu(page, reinterpret_cast<HWND>(wParam)); return true;
    case WM_COMMAND:
        if (wParam != IDM_WHATS_THIS) return false;
        ShowHelpTip(page, helpControl);
        return true;
    case WM_NOTIFY:
        if (reinterpret_cast<const NMHDR*>(lParam)->code == TTN_POP) OnTipPopped();
        return false;
    case WM_HELP: ShowHelpTip(page, reinterpret_cast<const HELPINFO*>(lParam)->iCtrlId); return true;
    case WM_ACTIVATEAPP:
        if (!wParam) HideHelpTip();
        return false;
    case WM_ACTIVATE:
        if (wParam) HideHelpTip();
        return false;
    }
    return false;
}

}  // namespace halyard
