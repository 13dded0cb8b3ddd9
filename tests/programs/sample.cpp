// A program that does as the tests say and tells what was done to its windows. Works under any file name.
#include "programs/sample_protocol.h"

#include <cstdio>
#include <cstdlib>

namespace sample {

namespace {

constexpr char PopupClass[] = "HalyardSamplePopup";

std::string title = DefaultTitle, windowClass = DefaultClass;
RECT place = {40, 40, 360, 280};
int count = 1, showCommand = SW_SHOW;
bool colour = false, shell = false;

LONG mainWindows = 0, hides = 0;
LONG messageCounts[WM_USER] = {};
HMENU shellMenu = nullptr;
LONG_PTR ownProcedure = 0;
HWND report = nullptr;

POINT PointOf(LPARAM lParam) {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

HMENU MenuOf(HWND window) {
    return shellMenu ? shellMenu : GetSystemMenu(window, FALSE);
}

MENUITEMINFOA ItemAt(HMENU menu, int position, char (&text)[64]) {
    MENUITEMINFOA item = {};
    item.cbSize = sizeof(item);
    item.fMask = MIIM_TYPE | MIIM_STATE | MIIM_ID | MIIM_SUBMENU;
    item.dwTypeData = text;
    item.cch = sizeof(text);
    GetMenuItemInfoA(menu, static_cast<UINT>(position), TRUE, &item);
    return item;
}

// One line for each item, those of submenus below it and indented.
std::string MenuText(HMENU menu, const std::string& indent) {
    std::string lines;
    for (int position = 0; position < GetMenuItemCount(menu); ++position) {
        char text[64] = {};
        const MENUITEMINFOA item = ItemAt(menu, position, text);
        const std::string name = item.fType & MFT_SEPARATOR ? "----" : "\"" + std::string(text) + "\"";
        lines += indent + std::to_string(item.wID) + " " + name + (item.fState & MFS_CHECKED ? " checked" : "") +
                 (item.fState & MFS_GRAYED ? " grey" : "") + (item.fState & MFS_DEFAULT ? " bold\n" : "\n");
        if (item.hSubMenu) lines += MenuText(item.hSubMenu, indent + "  ");
    }
    return lines;
}

LRESULT PlaceOfItem(HMENU menu, UINT id) {
    for (int position = 0; position < GetMenuItemCount(menu); ++position) {
        char text[64] = {};
        const MENUITEMINFOA item = ItemAt(menu, position, text);
        RECT rect = {};
        if (item.wID == id && GetMenuItemRect(nullptr, menu, static_cast<UINT>(position), &rect))
            return MAKELONG((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
        const LRESULT within = item.hSubMenu ? PlaceOfItem(item.hSubMenu, id) : 0;
        if (within) return within;
    }
    return 0;
}

LRESULT Report(const std::string& text) {
    SetWindowTextA(report, text.c_str());
    return reinterpret_cast<LRESULT>(report);
}

LRESULT CALLBACK PopupProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message < WM_USER) ++messageCounts[message];
    if (message == ShowAs) return ShowWindow(window, static_cast<int>(wParam));
    if (message == AskAttention) return FlashWindow(window, TRUE);
    return DefWindowProcA(window, message, wParam, lParam);
}

HWND Open(const std::string& name, WNDPROC procedure, const std::string& text, DWORD style, HWND parent, int shift) {
    WNDCLASSA made = {};
    made.lpfnWndProc = procedure;
    made.hInstance = GetModuleHandleA(nullptr);
    made.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    made.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    made.lpszClassName = name.c_str();
    RegisterClassA(&made);
    return CreateWindowA(name.c_str(), text.c_str(), style, place.left + shift, place.top + shift,
                         place.right - place.left, place.bottom - place.top, parent, nullptr, made.hInstance, nullptr);
}

LRESULT OnOpenPopup(HWND owner, bool visible) {
    const HWND popup = Open(PopupClass, PopupProc, "Popup", WS_POPUP | WS_CAPTION, owner, 60);
    if (visible) ShowWindow(popup, SW_SHOWNA);
    return reinterpret_cast<LRESULT>(popup);
}

INT_PTR CALLBACK DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_CLOSE) return DestroyWindow(dialog);
    if (message != ShowAs && message != Activate) return FALSE;
    message == ShowAs ? ShowWindow(dialog, static_cast<int>(wParam)) : SetActiveWindow(dialog) != nullptr;
    return TRUE;
}

LRESULT OnOpenDialog(HWND window, WPARAM kind, POINT corner) {
    // Without controls, menu, class and title; the header is all that there is to the template.
    struct Template {
        DLGTEMPLATE header;
        WORD menu, windowClass, title;
    };
    alignas(DWORD) static const Template box = {{WS_POPUP | WS_CAPTION | WS_SYSMENU, 0, 0, 0, 0, 100, 60}, 0, 0, 0};
    const HWND owner = kind == VisibleOwner  ? window
                       : kind == HiddenOwner ? Open(PopupClass, PopupProc, "Owner", WS_OVERLAPPEDWINDOW, nullptr, 0)
                                             : nullptr;
    const HWND dialog = CreateDialogIndirectParamA(GetModuleHandleA(nullptr), &box.header, owner, DialogProc, 0);
    SetWindowPos(dialog, nullptr, corner.x, corner.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    return reinterpret_cast<LRESULT>(dialog);
}

LRESULT OnHang(DWORD period) {
    const HANDLE wake = CreateEventA(nullptr, TRUE, FALSE, WakeEvent);
    WaitForSingleObject(wake, period);
    return CloseHandle(wake);
}

// The platform's hook code is not on its way through the thread while it handles a sent message.
LRESULT OnDropLibrary() {
    const HMODULE library = GetModuleHandleA("tvlHalyd.dll");
    return library && FreeLibrary(library) && !GetModuleHandleA("tvlHalyd.dll");
}

LRESULT OnOpenMenu(HWND view, POINT corner) {
    SetForegroundWindow(GetParent(view));
    return TrackPopupMenu(shellMenu, TPM_LEFTALIGN | TPM_TOPALIGN, corner.x, corner.y, 0, view, nullptr);
}

// The program ends with its last main window.
LRESULT OnDestroy() {
    if (--mainWindows == 0) PostQuitMessage(0);
    return 0;
}

LRESULT CALLBACK MainProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case OpenPopup: return OnOpenPopup(window, wParam != 0);
    case Hang: return OnHang(static_cast<DWORD>(wParam));
    case CountMessage: return wParam < WM_USER ? messageCounts[wParam] : 0;
    case CountHides: return hides;
    case DropLibrary: return OnDropLibrary();
    case OpenMenu: return OnOpenMenu(window, PointOf(lParam));
    case ReportMenu: return Report(MenuText(MenuOf(window), {}));
    case ItemPlace: return PlaceOfItem(MenuOf(window), static_cast<UINT>(wParam));
    case OpenDialog: return OnOpenDialog(window, wParam, PointOf(lParam));
    case Activate: return SetActiveWindow(window) != nullptr;
    case HasOwnProcedure: return GetWindowLongPtrA(window, GWLP_WNDPROC) == ownProcedure;
    case WM_WINDOWPOSCHANGED:
        if (reinterpret_cast<const WINDOWPOS*>(lParam)->flags & SWP_HIDEWINDOW) ++hides;
        break;
    case WM_DESTROY: return OnDestroy();
    }
    return PopupProc(window, message, wParam, lParam);
}

void OpenMain(int number) {
    const std::string text = number == 1 ? title : title + " " + std::to_string(number);
    // A popup of a window that doesn't clip its children counts as a window by itself.
    const HWND window =
        Open(windowClass, MainProc, text, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, nullptr, (number - 1) % 16 * 12);
    ownProcedure = GetWindowLongPtrA(window, GWLP_WNDPROC);
    ShowWindow(window, showCommand);
}

void OpenShell() {
    mainWindows = 2;
    shellMenu = CreatePopupMenu();
    AppendMenuA(shellMenu, MF_STRING, 100, "Refresh");
    place = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    const HWND progman = Open("Progman", MainProc, "Progman", WS_POPUP | WS_VISIBLE, nullptr, 0);
    Open("SHELLDLL_DefView", MainProc, {}, WS_CHILD | WS_VISIBLE, progman, 0);
}

bool ReadSwitch(const std::string& text, const char* value) {
    if (text == "--colour") return colour = true;
    if (text == "--shell") return shell = true;
    if (text == "--hidden" || text == "--inactive") {
        showCommand = text == "--hidden" ? SW_HIDE : SW_SHOWNA;
        return true;
    }
    if (text == "--title") title = value;
    if (text == "--class") windowClass = value;
    if (text == "--count") count = std::atoi(value);
    if (text == "--at" && std::sscanf(value, "%ld,%ld,%ld,%ld", &place.left, &place.top, &place.right, &place.bottom))
        place = {place.left, place.top, place.left + place.right, place.top + place.bottom};
    return false;  // the value is no switch
}

int Run(int arguments, char** texts) {
    for (int index = 1; index < arguments; ++index)
        if (!ReadSwitch(texts[index], index + 1 < arguments ? texts[index + 1] : "")) ++index;
    if (colour) return static_cast<int>(GetSysColor(COLOR_BACKGROUND));
    report = CreateWindowA("STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    mainWindows = count;
    if (shell) OpenShell();
    for (int number = 1; number <= count && !shell; ++number)
        OpenMain(number);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}

}  // namespace

}  // namespace sample

int main(int count, char** arguments) {
    return sample::Run(count, arguments);
}
