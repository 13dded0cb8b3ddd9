// The desktop windows of a shell, with a context menu of one item. Its file name must keep the word "explorer".
#include "programs/sample_protocol.h"

namespace sample {

namespace {

constexpr UINT OwnItem = 100;
HMENU menu = nullptr;
LONG messageCounts[WM_USER] = {};

int PositionOf(UINT id) {
    for (int position = GetMenuItemCount(menu) - 1; position >= 0; --position)
        if (GetMenuItemID(menu, position) == id) return position;
    return -1;
}

LRESULT OnOpenMenu(HWND view, POINT place) {
    SetForegroundWindow(GetParent(view));
    TrackPopupMenu(menu, TPM_LEFTALIGN | TPM_TOPALIGN, place.x, place.y, 0, view, nullptr);
    return 0;
}

LRESULT OnCountMenuItem(UINT id) {
    LRESULT count = 0;
    for (int position = GetMenuItemCount(menu) - 1; position >= 0; --position)
        count += GetMenuItemID(menu, position) == id;
    return count;
}

LRESULT OnMenuItemBefore(UINT id) {
    MENUITEMINFOA item = {};
    item.cbSize = sizeof(item);
    item.fMask = MIIM_FTYPE;
    GetMenuItemInfoA(menu, static_cast<UINT>(PositionOf(id) - 1), TRUE, &item);
    return static_cast<LRESULT>(item.fType);
}

LRESULT OnMenuItemPlace(UINT id) {
    RECT place = {};
    const int position = PositionOf(id);
    if (position < 0 || !GetMenuItemRect(nullptr, menu, static_cast<UINT>(position), &place)) return 0;
    return MAKELONG((place.left + place.right) / 2, (place.top + place.bottom) / 2);
}

LRESULT CALLBACK ViewProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message < WM_USER) ++messageCounts[message];
    switch (message) {
    case CountMessage: return wParam < WM_USER ? messageCounts[wParam] : 0;
    case OpenMenu: return OnOpenMenu(window, {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
    case CountMenuItem: return OnCountMenuItem(static_cast<UINT>(wParam));
    case MenuItemBefore: return OnMenuItemBefore(static_cast<UINT>(wParam));
    case MenuItemPlace: return OnMenuItemPlace(static_cast<UINT>(wParam));
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

LRESULT CALLBACK ProgmanProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcA(window, message, wParam, lParam);
}

HWND Open(const char* name, WNDPROC procedure, DWORD style, HWND parent, const RECT& place) {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BACKGROUND + 1);
    windowClass.lpszClassName = name;
    RegisterClassA(&windowClass);
    return CreateWindowA(name, name, style | WS_VISIBLE, place.left, place.top, place.right, place.bottom, parent,
                         nullptr, windowClass.hInstance, nullptr);
}

void Run() {
    menu = CreatePopupMenu();
    AppendMenuA(menu, MF_STRING, OwnItem, "Refresh");
    const RECT place = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    const HWND progman = Open("Progman", ProgmanProc, WS_POPUP, nullptr, place);
    Open("SHELLDLL_DefView", ViewProc, WS_CHILD, progman, place);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

}  // namespace

}  // namespace sample

int main() {
    sample::Run();
    return 0;
}
