#include "crash/report_dialog.h"

#include "common/handles.h"

#include "behaviours/geometry.h"
#include "common/win_types.h"
#include "common/window_text.h"
#include "process/profile.h"
#include "process/window_long.h"
#include "resources/resource_ids.h"

#include <mbstring.h>
#include <shellapi.h>

namespace halyard {

namespace {

#define SUPPORT_ADDRESS "help@tevral.example"
constexpr char SupportAddress[] = SUPPORT_ADDRESS;
constexpr char MailLink[] = "mailto:" SUPPORT_ADDRESS "?subject=Halyard%20Error%20Report";
constexpr UINT IsUpMessage = WM_APP;  // posted by the dialog to itself when it is made
constexpr COLORREF LinkColour = RGB(0, 0, 255);

ReportDialogData& DataOf(HWND dialog) noexcept {
    return *reinterpret_cast<ReportDialogData*>(GetWindowLongPtrA(dialog, GWLP_USERDATA));
}

LRESULT CallOldProc(HWND control, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const auto old = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(control, GWLP_USERDATA));
    return CallWindowProcA(old, control, message, wParam, lParam);
}

LRESULT CALLBACK LinkWndProc(HWND link, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SETCURSOR)
        // Systems of the first generation have no hand.
        if (HCURSOR hand = LoadCursorA(nullptr, IDC_HAND)) {
            SetCursor(hand);
            return TRUE;
        }
    return CallOldProc(link, message, wParam, lParam);
}

// A multi-line edit control takes the Esc key away from the dialog and then asks the dialog to close, which a user who
// is about to copy the text must not suffer.
LRESULT CALLBACK TextWndProc(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_KEYDOWN && wParam == VK_ESCAPE) return 0;
    return CallOldProc(edit, message, wParam, lParam);
}

void Subclass(HWND control, WNDPROC procedure) noexcept {
    const WNDPROC old = SetWindowProc(control, procedure);
    SetWindowLongPtrA(control, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(old));
}

void ShowProgramName(HWND dialog) noexcept {
    SetWindowTextOf(dialog, ModulePath(nullptr).FileName());
}

// The sentence that ends in the link is drawn in whatever font the system has for the dialog's; where that is a wide
// one the sentence would run into the link.
void KeepLinkClear(HWND dialog) noexcept {
    HWND hint = GetDlgItem(dialog, IDC_REPORT_HINT);
    HWND link = GetDlgItem(dialog, IDC_REPORT_LINK);
    RECT hintPlace = {};
    RECT linkPlace = {};
    GetWindowRect(hint, &hintPlace);
    GetWindowRect(link, &linkPlace);
    char text[128];
    const int length = GetWindowTextA(hint, text, sizeof(text) - 1);
    text[length] = ' ';
    SIZE size = {};
    {
        const WindowDc dc(hint);
        const SelectedObject font(dc.get(), reinterpret_cast<HFONT>(SendMessageA(hint, WM_GETFONT, 0, 0)));
        GetTextExtentPoint32A(dc.get(), text, length + 1, &size);
    }
    const LONG over = hintPlace.left + size.cx - linkPlace.left;
    if (over <= 0) return;
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&linkPlace), 2);
    SetWindowPos(link, nullptr, linkPlace.left + over, linkPlace.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Asks the platform and not the table of displays, whose lock the faulted thread may hold.
void CentreOnDisplay(HWND dialog) noexcept {
    RECT rect = {};
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    if (!profile.getMonitorInfo || !profile.monitorFromRect || !GetWindowRect(dialog, &rect)) return;
    if (!GetMonitorInfoA(profile.monitorFromRect(&rect, MONITOR_DEFAULTTONEAREST), &info)) return;
    const POINT place = CentredOn(rect, info.rcWork, info.rcWork);
    SetWindowPos(dialog, nullptr, place.x, place.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

INT_PTR OnInitDialog(HWND dialog, LPARAM data) noexcept {
    SetWindowLongPtrA(dialog, GWLP_USERDATA, data);
    HWND text = GetDlgItem(dialog, IDC_REPORT_TEXT);
    SetWindowTextOf(text, DataOf(dialog).text.Text());
    Subclass(GetDlgItem(dialog, IDC_REPORT_LINK), LinkWndProc);
    Subclass(text, TextWndProc);
    ShowProgramName(dialog);
    SendMessageA(text, EM_SETSEL, 0, -1);
    // Selecting scrolls to the end, here and again when the dialog gives the control its focus; a reader starts at the
    // top.
    PostMessageA(text, WM_VSCROLL, SB_TOP, 0);
    KeepLinkClear(dialog);
    CentreOnDisplay(dialog);
    PostMessageA(dialog, IsUpMessage, 0, 0);
    return TRUE;
}

INT_PTR OnDrawItem(const DRAWITEMSTRUCT& item) noexcept {
    if (item.CtlID != IDC_REPORT_LINK) return FALSE;
    LOGFONTA look = {};
    GetObjectA(GetCurrentObject(item.hDC, OBJ_FONT), sizeof(look), &look);
    look.lfUnderline = 1;
    const Font font(CreateFontIndirectA(&look));
    const SelectedObject selected(item.hDC, font.get());
    SetTextColor(item.hDC, LinkColour);
    TextOutA(item.hDC, 0, 0, SupportAddress, sizeof(SupportAddress) - 1);
    return TRUE;
}

void OpenMail() noexcept {
    const HMODULE shell = LoadLibraryA("shell32.dll");
    const auto execute = EntryOf<decltype(&ShellExecuteA)>(shell, "ShellExecuteA");
    if (execute) execute(nullptr, "open", MailLink, nullptr, nullptr, SW_SHOWNORMAL);
}

INT_PTR OnCommand(HWND dialog, UINT id, UINT code, HWND control) noexcept {
    switch (id) {
    case IDC_REPORT_LINK:
        if (code == STN_CLICKED) OpenMail();
        break;
    case IDC_EXCLUDE_PROGRAM:
        DataOf(dialog).excludeProgram = SendDlgItemMessageA(dialog, id, BM_GETCHECK, 0, 0) != 0;
        break;
    case IDOK:
        if (control && control == GetDlgItem(dialog, IDOK)) EndDialog(dialog, 0);
        break;
    }
    return FALSE;
}

INT_PTR CALLBACK ReportDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(dialog, lParam);
    case WM_DRAWITEM: return OnDrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    case WM_COMMAND: return OnCommand(dialog, LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
    case WM_CLOSE: EndDialog(dialog, 0); break;
    case IsUpMessage: *DataOf(dialog).isUp = true; break;
    }
    return FALSE;
}

}  // namespace

void ShowReportDialog(ReportDialogData& data) noexcept {
    DialogBoxParamA(profile.moduleInstance, MAKEINTRESOURCEA(IDD_REPORT), nullptr, ReportDialogProc,
                    reinterpret_cast<LPARAM>(&data));
}

}  // namespace halyard
