#include "shell/switcher.h"

#include "shell/task_windows.h"

namespace standin {

namespace {

const char* const SwitchClass = reinterpret_cast<const char*>(32771);
enum Message : UINT { Choose = WM_APP };  // posted by the keyboard's hook when Alt goes up

constexpr int RowHeight = 24, Width = 240;

HWND switchWindow = nullptr;
std::vector<HWND> tasks;
int chosen = 0;

// Whoever holds the keys as a hotkey gets them before the platform's switcher does.
bool IsHotkey(UINT modifiers) {
    constexpr int TrialId = 1;
    if (!RegisterHotKey(nullptr, TrialId, modifiers, VK_TAB)) return true;
    UnregisterHotKey(nullptr, TrialId);
    return false;
}

void Open() {
    tasks = TaskWindows();
    if (tasks.empty()) return;
    chosen = 0;
    const int height = static_cast<int>(tasks.size()) * RowHeight;
    switchWindow =
        CreateWindowExA(WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, SwitchClass, "", WS_POPUP | WS_DLGFRAME,
                        (GetSystemMetrics(SM_CXSCREEN) - Width) / 2, (GetSystemMetrics(SM_CYSCREEN) - height) / 2,
                        Width, height, nullptr, nullptr, nullptr, nullptr);
    ShowWindow(switchWindow, SW_SHOWNA);
}

void OnTab() {
    const bool back = GetAsyncKeyState(VK_SHIFT) < 0;
    if (IsHotkey(MOD_ALT | (back ? MOD_SHIFT : 0))) return;
    if (!switchWindow) Open();
    if (!switchWindow) return;
    const int count = static_cast<int>(tasks.size());
    chosen = (chosen + (back ? count - 1 : 1)) % count;
    RedrawWindow(switchWindow, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    GdiFlush();  // onto the screen, from which programs copy it
}

// A row for each window, the chosen one's marked.
void OnPaint(HWND window) {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window, &paint);
    RECT row = {0, 0, Width, RowHeight};
    SetBkMode(dc, TRANSPARENT);
    for (const HWND task : tasks) {
        FillRect(dc, &row, GetSysColorBrush(task == tasks[chosen] ? COLOR_HIGHLIGHT : COLOR_3DFACE));
        DrawTextA(dc, TitleOf(task).c_str(), -1, &row, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
        OffsetRect(&row, 0, RowHeight);
    }
    EndPaint(window, &paint);
}

LRESULT CALLBACK SwitchProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_PAINT: OnPaint(window); return 0;
    case WM_DESTROY: switchWindow = nullptr; return 0;
    case Choose:
        DestroyWindow(window);
        SetForegroundWindow(tasks[chosen]);
        return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

// The window is there when the key has gone through, for a program that replays the keys and then looks for it. The
// keys go on to the program in the foreground: without the Tab it would take Alt alone as the way to its menu.
LRESULT CALLBACK KeyboardProc(int code, WPARAM wParam, LPARAM lParam) {
    const DWORD key = reinterpret_cast<const KBDLLHOOKSTRUCT*>(lParam)->vkCode;
    const bool down = wParam == WM_KEYDOWN || wParam == WM_SYSKEYDOWN;
    if (down && key == VK_TAB && GetAsyncKeyState(VK_MENU) < 0) OnTab();
    const bool isAlt = key == VK_MENU || key == VK_LMENU || key == VK_RMENU;
    if (!down && isAlt && switchWindow) PostMessageA(switchWindow, Choose, 0, 0);
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

void StartSwitcher() {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = SwitchProc;
    windowClass.lpszClassName = SwitchClass;
    RegisterClassA(&windowClass);
    SetWindowsHookExA(WH_KEYBOARD_LL, KeyboardProc, GetModuleHandleA(nullptr), 0);
}

}  // namespace standin
