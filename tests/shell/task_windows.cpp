#include "shell/task_windows.h"

namespace standin {

namespace {

constexpr UINT IconPatience = 100;  // ms for a program to name its icon

bool IsHiddenMain(HWND owner) {
    RECT place = {};
    GetWindowRect(owner, &place);
    return place.left == place.right && place.top == place.bottom &&
           (GetWindowLongA(owner, GWL_EXSTYLE) & WS_EX_TOOLWINDOW);
}

bool IsTaskWindow(HWND window) {
    if (GetAncestor(window, GA_PARENT) != GetDesktopWindow() || !IsWindowVisible(window)) return false;
    if (GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW) return false;
    const HWND owner = GetWindow(window, GW_OWNER);
    return !owner || IsHiddenMain(owner);
}

BOOL CALLBACK Collect(HWND window, LPARAM windows) {
    if (IsTaskWindow(window)) reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    return TRUE;
}

}  // namespace

std::vector<HWND> TaskWindows() {
    std::vector<HWND> windows;
    EnumWindows(Collect, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

HWND TaskOf(HWND window) {
    while (window && !IsTaskWindow(window))
        window = GetWindow(window, GW_OWNER);
    return window;
}

std::string TitleOf(HWND window) {
    char title[256] = {};
    GetWindowTextA(window, title, sizeof(title));
    return title;
}

HICON IconOf(HWND window) {
    DWORD_PTR icon = 0;
    SendMessageTimeoutA(window, WM_GETICON, ICON_SMALL, 0, SMTO_ABORTIFHUNG, IconPatience, &icon);
    if (!icon) icon = GetClassLongPtrA(window, GCLP_HICONSM);
    return icon ? reinterpret_cast<HICON>(icon) : LoadIconA(nullptr, reinterpret_cast<LPCSTR>(IDI_WINLOGO));
}

}  // namespace standin
