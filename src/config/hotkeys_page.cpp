#include "common/list_view.h"
#include "common/window_text.h"
#include "config/page_messages.h"
#include "config/pages.h"
#include "config/sheet.h"
#include "config/sheet_controls.h"
#include "hotkeys/hotkey_storage.h"
#include "hotkeys/hotkeys.h"
#include "process/profile.h"
#include "process/strings.h"
#include "process/window_long.h"
#include "resources/resource_ids.h"

#include <commctrl.h>
#include <prsht.h>

namespace halyard {

namespace {

HotkeyModifiers captured;  // the combination in the box
WNDPROC oldBoxProc = nullptr;
WNDPROC oldListProc = nullptr;
bool inFront = false;  // whether the page is the one that shows: its user presses combinations that are bound already

HWND ListOf(HWND page) noexcept {
    return GetDlgItem(page, IDC_HOTKEY_LIST);
}

bool IsDown(int key) noexcept {
    return (GetKeyState(key) & 0x80) != 0;
}

LRESULT CallOld(WNDPROC old, HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    return old ? CallWindowProcA(old, window, message, wParam, lParam)
               : DefWindowProcA(window, message, wParam, lParam);
}

void ShowHint(HWND page, const char* text) noexcept {
    SetWindowTextOf(GetDlgItem(page, IDC_HOTKEY_HINT), text);
}

bool FindAction(HWND list, int row, unsigned& action) noexcept {
    LPARAM value = 0;
    if (!ListValue(list, row, value)) return false;
    action = static_cast<unsigned>(value);
    return true;
}

bool IsModifier(DWORD key) noexcept {
    return (key >= VK_SHIFT && key <= VK_MENU) || key == VK_LWIN || key == VK_RWIN;
}

void ShowHintAbout(HWND page, unsigned stringId, const char* name) noexcept {
    char text[1025];  // the platform's limit for formatted text
    wsprintfA(text, LookupText(stringId).Text(), name);
    ShowHint(page, text);
}

// Whether the combination in the box can be set; the line under the box tells why it can't.
bool CanSet(HWND page, bool bindable) noexcept {
    unsigned action = 0;
    if (!FindAction(ListOf(page), SelectedListRow(ListOf(page)), action)) return false;
    const TextBuffer other = ActionWithBinding(captured, action);
    if (!bindable && !IsModifier(captured.key))
        ShowHint(page, LookupText(HasModifier(captured) ? IDS_HOTKEY_UNKNOWN_KEY : IDS_HOTKEY_KEY_ALONE).Text());
    else if (bindable && !other.IsEmpty())
        ShowHintAbout(page, IDS_HOTKEY_TAKEN, other.Text());
    else
        ShowHint(page, "");
    return bindable && other.IsEmpty();
}

// Nothing while the box is grey.
void OnBoxKey(HWND box, DWORD key) noexcept {
    if (!IsWindowEnabled(box)) return;
    HWND page = GetParent(box);
    captured.alt = IsDown(VK_MENU);
    captured.ctrl = IsDown(VK_CONTROL);
    captured.shift = IsDown(VK_SHIFT);
    captured.win = IsDown(VK_LWIN) || IsDown(VK_RWIN);
    captured.key = key;
    TextBuffer text;
    const bool bindable = FormatHotkey(text, captured);
    SetWindowTextA(box, text.Text());
    constexpr WPARAM End = 65000;
    SendMessageA(box, EM_SETSEL, End, End);
    EnableControl(page, IDC_SET_HOTKEY, CanSet(page, bindable));
}

bool IsModifierDown() noexcept {
    return IsDown(VK_CONTROL) || IsDown(VK_MENU) || IsDown(VK_LWIN) || IsDown(VK_RWIN);
}

// By these keys alone the user goes through the list, and wants to see what is bound there.
bool MovesInList(WPARAM key) noexcept {
    return key >= VK_PRIOR && key <= VK_DOWN && !IsModifierDown() && !IsDown(VK_SHIFT);
}

// A key that the dialog would take for itself comes to the box while a modifier makes a combination of it.
bool WantsKey(const MSG* message) noexcept {
    return message && (message->message == WM_KEYDOWN || message->message == WM_SYSKEYDOWN) && IsModifierDown();
}

// The character that the key stands for waits in the queue already. With Alt it would press the button whose letter it
// is.
void DropCharacter(HWND window) noexcept {
    MSG character;
    PeekMessageA(&character, window, WM_SYSCHAR, WM_SYSCHAR, PM_REMOVE);
}

LRESULT CALLBACK HotkeyEditProc(HWND box, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        DropCharacter(box);
        OnBoxKey(box, static_cast<DWORD>(wParam));
        return 0;
    case WM_CHAR:
    case WM_SYSCHAR: return 0;
    case WM_GETDLGCODE:
        if (WantsKey(reinterpret_cast<const MSG*>(lParam))) return DLGC_WANTMESSAGE;
        break;
    }
    return CallOld(oldBoxProc, box, message, wParam, lParam);
}

// A combination can be pressed while the list has the focus: it goes to the box, and neither moves nor searches in the
// list.
LRESULT CALLBACK HotkeyListProc(HWND list, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_KEYDOWN:
        if (MovesInList(wParam)) break;
        OnBoxKey(GetDlgItem(GetParent(list), IDC_HOTKEY_BOX), static_cast<DWORD>(wParam));
        return 0;
    case WM_CHAR: return 0;
    }
    return CallOld(oldListProc, list, message, wParam, lParam);
}

TextBuffer BindingText(HotkeyModifiers binding) noexcept {
    TextBuffer text;
    return FormatHotkey(text, binding) ? text : TextBuffer();
}

void FillHotkeyRows(HWND page) noexcept {
    HWND list = ListOf(page);
    const int selected = SelectedListRow(list);
    SendMessageA(list, LVM_DELETEALLITEMS, 0, 0);
    Hotkey hotkey = {};
    for (int index = 0; HotkeyByIndex(static_cast<unsigned>(index), hotkey); ++index) {
        const int row =
            InsertListRow(list, index, hotkey.label.Text(), HotkeyImage, static_cast<LPARAM>(hotkey.action));
        SetListText(list, row, 1, BindingText(hotkey.binding).Text());
    }
    if (selected >= 0) SelectListRow(list, selected);
}

void ApplyEnableRules(HWND page) noexcept {
    const PageState state = CurrentPageState();
    EnableControl(page, IDC_HOTKEY_LIST, state.IsLive());
    EnableControl(page, IDC_HOTKEY_BOX, state.IsLive() && SelectedListRow(ListOf(page)) >= 0);
    if (state.hooksInstalled) return;
    SetDlgItemTextA(page, IDC_HOTKEY_BOX, "");
    EnableControl(page, IDC_SET_HOTKEY, false);
}

void OnInit(HWND page) noexcept {
    HWND list = ListOf(page);
    GiveListImages(list);
    RECT client = {};
    GetClientRect(list, &client);
    const int width = client.right - GetSystemMetrics(SM_CXVSCROLL);
    const int actionWidth = ActionColumnWidth(width, GetUserDefaultLangID());
    InsertListColumn(list, 0, LookupText(IDS_COLUMN_ACTION).Text(), actionWidth);
    InsertListColumn(list, 1, LookupText(IDS_COLUMN_HOTKEY).Text(), width - actionWidth);
    // With the system off from the start nobody has loaded them yet.
    LoadHotkeysOnce();
    FillHotkeyRows(page);
    ApplyEnableRules(page);
    captured = {};
    oldBoxProc = SetWindowProc(GetDlgItem(page, IDC_HOTKEY_BOX), HotkeyEditProc);
    oldListProc = SetWindowProc(list, HotkeyListProc);
    SetDlgItemTextA(page, IDC_HOTKEY_BOX, LookupText(IDS_SELECT_ACTION).Text());
    AddPage(HotkeysPage, page);
}

// Why a combination does nothing: another action has it, or another program.
void ShowHintFor(HWND page, unsigned action) noexcept {
    Hotkey hotkey = {};
    for (unsigned index = 0; HotkeyByIndex(index, hotkey) && hotkey.action != action; ++index) {
    }
    if (hotkey.action != action) return;
    const TextBuffer other = ActionWithBinding(hotkey.binding, action);
    if (other.IsEmpty())
        ShowHint(page, hotkey.refused ? LookupText(IDS_HOTKEY_REFUSED).Text() : "");
    else
        ShowHintAbout(page, IDS_HOTKEY_SHARED, other.Text());
}

void OnRowSelected(HWND page, int row) noexcept {
    HWND box = GetDlgItem(page, IDC_HOTKEY_BOX);
    SetWindowTextA(box, ListText(ListOf(page), row, 1).Text());
    SendMessageA(box, EM_SETSEL, static_cast<WPARAM>(-1), -1);
    EnableWindow(box, TRUE);
    EnableControl(page, IDC_SET_HOTKEY, false);
    unsigned action = 0;
    if (FindAction(ListOf(page), row, action)) ShowHintFor(page, action);
}

void OnSet(HWND page) noexcept {
    HWND list = ListOf(page);
    // Not the selection mark, which keys don't move on every platform.
    const int row = SelectedListRow(list);
    unsigned action = 0;
    if (!FindAction(list, row, action)) return;
    SetHotkeyBinding(action, captured);
    TextBuffer text;
    HotkeyModifiers shown = captured;
    FormatHotkey(text, shown);
    SetListText(list, row, 1, text.Text());
    PageChanged(page);
    ShowHintFor(page, action);
}

void OnListNotice(HWND page, const NMHDR& notice) noexcept {
    if (notice.code != LVN_ITEMCHANGED) return;
    const auto& change = reinterpret_cast<const NMLISTVIEW&>(notice);
    if (change.uNewState & LVIS_SELECTED) OnRowSelected(page, change.iItem);
}

// Registers what is bound, and takes it back while the page shows: so it is known what another program holds.
void RegisterAgain() noexcept {
    RegisterHotkeys();
    if (inFront) UnregisterHotkeys();
}

void OnApply(HWND page) noexcept {
    SaveHotkeys();
    LoadHotkeys();
    RegisterAgain();
    FillHotkeyRows(page);
}

void OnReset() noexcept {
    LoadHotkeys();
    RegisterAgain();
}

void ComeToFront(bool front) noexcept {
    inFront = front && sheet.canEdit;
    RegisterAgain();
}

void OnNotify(HWND page, const NMHDR& notice) noexcept {
    switch (notice.code) {
    case PSN_SETACTIVE: ComeToFront(true); break;
    case PSN_KILLACTIVE: ComeToFront(false); break;
    case PSN_APPLY: OnApply(page); break;
    case PSN_RESET: OnReset(); break;
    }
    if (notice.idFrom == IDC_HOTKEY_LIST) OnListNotice(page, notice);
}

// The system has been turned on or off, and has registered the hotkeys meanwhile.
void OnRefresh(HWND page) noexcept {
    RegisterAgain();
    ApplyEnableRules(page);
}

}  // namespace

INT_PTR CALLBACK HotkeysPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = 0;
    if (HandleSharedMessage(page, message, wParam, lParam, result)) return result;
    switch (message) {
    case WM_INITDIALOG: OnInit(page); break;
    case RefreshPageMessage: OnRefresh(page); break;
    case WM_DESTROY: ComeToFront(false); break;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDC_SET_HOTKEY) OnSet(page);
        break;
    case WM_NOTIFY: OnNotify(page, *reinterpret_cast<const NMHDR*>(lParam)); break;
    }
    return 0;
}

}  // namespace halyard
