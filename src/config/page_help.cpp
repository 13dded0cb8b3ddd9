// Help popups and pictures, the same on every page.
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
    {IDC_MIRROR_PICTURE, IDS_HELP_MIRROR},
    {IDC_MIRROR, IDS_HELP_MIRROR},
    {IDC_MULTI_DESK, IDS_HELP_MULTI_DESK},
};

// Where a control's picture stands in the strip.
struct Sprite {
    UINT control;
    int x;
    int width;
};

constexpr int SpriteHeight = 32;
constexpr COLORREF SpriteBackground = 255;

constexpr Sprite Sprites[] = {
    {IDC_WINDOWS_PICTURE, 0, 32},   {IDC_DIALOGS_PICTURE, 32, 32},   {IDC_EFFECTS_PICTURE, 64, 30},
    {IDC_DESKTOPS_PICTURE, 98, 32}, {IDC_TASKBARS_PICTURE, 131, 35}, {IDC_MIRROR_PICTURE, 168, 35},
    {IDC_HOTKEYS_PICTURE, 204, 32},
};

constexpr UINT HelpTool = 1;
constexpr int TipWidth = 300;  // pixels

WNDPROC oldTipProc = nullptr;
HWND focusBehindTip = nullptr;

unsigned HelpIdOf(int control) noexcept {
    for (const HelpRow& row : HelpRows)
        if (row.control == control) return row.stringId;
    return IDS_HELP_NONE;
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
    if (!sheet.tipShown) return;
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

void ShowHelpTip(int control) noexcept {
    TextBuffer text = LookupText(HelpIdOf(control));
    TTTOOLINFOA tool = HelpToolInfo();
    const bool exists = SendMessageA(sheet.tip, TTM_GETTOOLINFOA, 0, reinterpret_cast<LPARAM>(&tool)) != 0;
    if (!exists) oldTipProc = SetWindowProc(sheet.tip, HelpTipProc);
    tool.uFlags = TTF_TRACK;
    tool.lpszText = text.Room();
    SendTool(exists ? TTM_SETTOOLINFOA : TTM_ADDTOOLA, 0, tool);
    SendMessageA(sheet.tip, TTM_SETMAXTIPWIDTH, 0, TipWidth);
    sheet.tipShown = true;
    // The last popup's end has turned the control off.
    SendMessageA(sheet.tip, TTM_ACTIVATE, TRUE, 0);
    SendMessageA(sheet.tip, TTM_TRACKPOSITION, 0, static_cast<LPARAM>(GetMessagePos()));
    SendTool(TTM_TRACKACTIVATE, TRUE, tool);
    const HWND focus = SetFocus(sheet.tip);
    if (focus != sheet.tip) focusBehindTip = focus;
}

void ShowHelpMenu(HWND page, HWND control) noexcept {
    sheet.helpControl = GetDlgCtrlID(control);
    if (sheet.helpControl < 1) return;
    HMENU menu = CreatePopupMenu();
    TextBuffer text = LookupText(IDS_WHATS_THIS);
    MENUITEMINFOA item = {};
    item.cbSize = sizeof(item);
    item.fMask = MIIM_STATE | MIIM_ID | MIIM_TYPE;
    item.fType = MFT_STRING;
    item.fState = MFS_DEFAULT;
    item.wID = IDM_WHATS_THIS;
    item.dwTypeData = text.Room();
    InsertMenuItemA(menu, 0, TRUE, &item);
    const DWORD place = GetMessagePos();
    TrackPopupMenu(menu, 0, static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place)), 0, page, nullptr);
    DestroyMenu(menu);
}

bool HandleHelpMessage(HWND page, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    switch (message) {
    case WM_CONTEXTMENU: ShowHelpMenu(page, reinterpret_cast<HWND>(wParam)); return true;
    case WM_COMMAND:
        if (wParam != IDM_WHATS_THIS) return false;
        ShowHelpTip(sheet.helpControl);
        return true;
    case WM_HELP: ShowHelpTip(reinterpret_cast<const HELPINFO*>(lParam)->iCtrlId); return true;
    case WM_ACTIVATEAPP:
        if (!wParam) HideHelpTip();
        return false;
    case WM_ACTIVATE:
        if (wParam) HideHelpTip();
        return false;
    }
    return false;
}

bool DrawSprite(const DRAWITEMSTRUCT& item) noexcept {
    for (const Sprite& sprite : Sprites) {
        if (sprite.control != item.CtlID) continue;
        TransparentBlt(item.hDC, 0, 0, sprite.width, SpriteHeight, sheet.spriteDc, sprite.x, 0, sprite.width,
                       SpriteHeight, SpriteBackground);
        return true;
    }
    return false;
}

void OnTipPopped() noexcept {
    if (!sheet.tip) return;
    SendMessageA(sheet.tip, TTM_POP, 0, 0);
    SendMessageA(sheet.tip, TTM_ACTIVATE, FALSE, 0);
}

}  // namespace

bool HandleSharedMessage(HWND page, UINT message, WPARAM wParam, LPARAM lParam, INT_PTR& result) noexcept {
    result = 0;
    if (HandleHelpMessage(page, message, wParam, lParam)) return true;
    if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == TTN_POP) OnTipPopped();
    if (message != WM_DRAWITEM) return false;
    result = DrawSprite(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)) ? 1 : 0;
    return result != 0;
}

}  // namespace halyard
