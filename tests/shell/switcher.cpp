#include "shell/switcher.h"

#include "shell/task_windows.h"

#include <algorithm>

namespace standin {

namespace {

const char* const SwitchClass = reinterpret_cast<const char*>(32771);
enum Message : UINT { Choose = WM_APP };  // posted by the keyboard's hook when Alt goes up

constexpr int Columns = 7;
constexpr int Cell = 44;
constexpr int Margin = 12;
constexpr int TitleHeight = 24;
constexpr int LeastWidth = 5 * Cell + 2 * Margin;

struct Task {
    HWND window;
    HICON icon;
};
// All of the thread's own.
HWND switchWindow = nullptr;
std::vector<Task> tasks;
int chosen = 0;
bool altHeld = false;  // the runtime's hook doesn't tell it with the key
bool shiftHeld = false;

// Whoever holds the keys as a hotkey gets them before the platform's switcher does.
bool IsHotkey(UINT modifiers) {
    constexpr int TrialId = 1;
    if (!RegisterHotKey(nullptr, TrialId, modifiers, VK_TAB)) return true;
    UnregisterHotKey(nullptr, TrialId);
    return false;
}

void Step() {
    const int count = static_cast<int>(tasks.size());
    chosen = (chosen + (shiftHeld ? count - 1 : 1)) % count;
    RedrawWindow(switchWindow, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

void Open() {
    tasks.clear();
    for (HWND window : TaskWindows())
        tasks.push_back({window, IconOf(window, ICON_BIG)});
    if (tasks.empty()) return;
    chosen = 0;
    const int count = static_cast<int>(tasks.size());
    const int width = std::max(std::min(count, Columns) * Cell + 2 * Margin, LeastWidth);
    const int height = (count + Columns - 1) / Columns * Cell + TitleHeight + 3 * Margin;
    switchWindow = CreateWindowExA(WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE | WS_EX_DLGMODALFRAME,
                                   SwitchClass, "", WS_POPUP | WS_DLGFRAME, (GetSystemMetrics(SM_CXSCREEN) - width) / 2,
                                   (GetSystemMetrics(SM_CYSCREEN) - height) / 2, width, height, nullptr, nullptr,
                                   GetModuleHandleA(nullptr), nullptr);
    ShowWindow(switchWindow, SW_SHOWNA);
}

void OnPaint(HWND window) {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window, &paint);
    RECT area;
    GetClientRect(window, &area);
    const int count = static_cast<int>(tasks.size());
    const int left = (area.right - std::min(count, Columns) * Cell) / 2;
    for (int index = 0; index < count; ++index) {
        RECT cell = {left + index % Columns * Cell, Margin / 2 + index / Columns * Cell, 0, 0};
        cell.right = cell.left + Cell;
        cell.bottom = cell.top + Cell;
        DrawIconEx(dc, cell.left + 6, cell.top + 6, tasks[index].icon, 32, 32, 0, nullptr, DI_NORMAL);
        if (index != chosen) continue;
        for (int line = 0; line < 2; ++line) {
            FrameRect(dc, &cell, GetSysColorBrush(COLOR_HIGHLIGHT));
            InflateRect(&cell, -1, -1);
        }
    }
    RECT box = {Margin, area.bottom - Margin - TitleHeight, area.right - Margin, area.bottom - Margin};
    DrawEdge(dc, &box, EDGE_SUNKEN, BF_RECT);
    InflateRect(&box, -4, 0);
    SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(dc, TRANSPARENT);
    DrawTextA(dc, TitleOf(tasks[chosen].window).c_str(), -1, &box,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    EndPaint(window, &paint);
}

void OnChoose(HWND window) {
    const HWND choice = tasks[chosen].window;
    DestroyWindow(window);
    if (IsIconic(choice)) PostMessageA(choice, WM_SYSCOMMAND, SC_RESTORE, 0);
    SetForegroundWindow(choice);
}

LRESULT CALLBACK SwitchProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_PAINT: OnPaint(window); return 0;
    case WM_DESTROY: switchWindow = nullptr; return 0;
    case Choose: OnChoose(window); return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

void OnTab() {
    if (IsHotkey(MOD_ALT | (shiftHeld ? MOD_SHIFT : 0))) return;
    if (!switchWindow) Open();
    if (switchWindow) Step();
}

// The window is there when the key has gone through, for a program that replays the keys and then looks for it. The
// keys go on to the program in the foreground: without the Tab it would take Alt alone as the way to its menu.
LRESULT CALLBACK KeyboardProc(int code, WPARAM wParam, LPARAM lParam) {
    const auto& key = *reinterpret_cast<const KBDLLHOOKSTRUCT*>(lParam);
    const bool down = wParam == WM_KEYDOWN || wParam == WM_SYSKEYDOWN;
    switch (code == HC_ACTION ? key.vkCode : 0) {
    case VK_SHIFT:
    case VK_LSHIFT:
    case VK_RSHIFT: shiftHeld = down; break;
    case VK_MENU:
    case VK_LMENU:
    case VK_RMENU:
        altHeld = down;
        if (!down && switchWindow) PostMessageA(switchWindow, Choose, 0, 0);
        break;
    case VK_TAB:
        if (down && altHeld) OnTab();
        break;
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

DWORD WINAPI Run(void* ready) {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = SwitchProc;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_3DFACE + 1);
    windowClass.lpszClassName = SwitchClass;
    RegisterClassA(&windowClass);
    SetWindowsHookExA(WH_KEYBOARD_LL, KeyboardProc, windowClass.hInstance, 0);
    SetEvent(ready);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
    return 0;
}

}  // namespace

void StartSwitcher() {
    const HANDLE ready = CreateEventA(nullptr, FALSE, FALSE, nullptr);
    CloseHandle(CreateThread(nullptr, 0, Run, ready, 0, nullptr));
    WaitForSingleObject(ready, INFINITE);
    CloseHandle(ready);
}

}  // namespace standin
