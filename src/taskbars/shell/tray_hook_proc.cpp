// The side of the hook that lies in the shell's process, where the task list's pointers are good.
#include "process/profile.h"
#include "process/protocol.h"
#include "process/shared_section.h"
#include "settings/settings.h"
#include "taskbars/shell/tray_hook.h"

#include <commctrl.h>

namespace halyard {

namespace {

constexpr WPARAM EventCode = 0x7FFF;  // without the flag that some events carry
constexpr UINT ServerTimeout = 2000;  // ms that the shell waits for the server at most

constexpr DWORD WithoutWindow = 0;  // an item that can't be read or stands for no window, as the head of a group

// The item's window is its number.
DWORD ReadTab(HWND list, WPARAM index) noexcept {
    TCITEMA item = {};
    item.mask = TCIF_PARAM;
    if (!SendMessageA(list, TCM_GETITEMA, index, reinterpret_cast<LPARAM>(&item))) return WithoutWindow;
    return static_cast<DWORD>(item.lParam);
}

// The item's window stands first in what its number points to.
DWORD ReadToolbarItem(HWND list, WPARAM index) noexcept {
    TBBUTTONINFOW item = {};
    item.cbSize = sizeof(item);
    item.dwMask = TBIF_BYINDEX | TBIF_LPARAM;
    if (SendMessageA(list, TB_GETBUTTONINFOW, index, reinterpret_cast<LPARAM>(&item)) == -1) return WithoutWindow;
    const auto* record = reinterpret_cast<const DWORD*>(item.lParam);
    return record ? *record : WithoutWindow;
}

WPARAM CountOf(HWND list) noexcept {
    const LRESULT count =
        list ? SendMessageA(list, profile.isWindows2000 ? TCM_GETITEMCOUNT : TB_BUTTONCOUNT, 0, 0) : 0;
    return count > 0 ? static_cast<WPARAM>(count) : 0;
}

DWORD WindowAt(HWND list, WPARAM index) noexcept {
    if (index >= CountOf(list)) return NotInTray;
    return profile.isWindows2000 ? ReadTab(list, index) : ReadToolbarItem(list, index);
}

// A tab control may list a window more than once; the last one is it.
DWORD FindInList(HWND list, DWORD window) noexcept {
    const WPARAM count = CountOf(list);
    DWORD found = NotInTray;
    for (DWORD index = 0; window != WithoutWindow && index < count; ++index) {
        if (WindowAt(list, index) != window) continue;
        found = index;
        if (!profile.isWindows2000) break;
    }
    return found;
}

// Any program can post the message: a handle that isn't an event's is left alone.
LRESULT Answer(DWORD answer, const MSG& message) noexcept {
    HANDLE asked = reinterpret_cast<HANDLE>(message.lParam);
    SetTrayAnswer(answer);
    if (asked && SetEvent(asked)) CloseHandle(asked);
    return 0;
}

bool IsArrival(const MSG& message) noexcept {
    const WPARAM code = message.wParam & EventCode;
    return message.message == profile.shellHookMessage &&
           (code == HSHELL_WINDOWCREATED || code == HSHELL_WINDOWACTIVATED);
}

bool HasSecondaryTaskbar(const MSG& message) noexcept {
    if (settings.TaskbarsShowAllTasks() || message.lParam == 0 || !profile.monitorFromWindow) return false;
    DWORD_PTR belongs = 0;
    const LRESULT answered = SendMessageTimeoutA(ServerWindow(), HM_WINDOW_CHANGED, static_cast<WPARAM>(message.lParam),
                                                 0, SMTO_ABORTIFHUNG, ServerTimeout, &belongs);
    return answered && belongs;
}

}  // namespace

LRESULT CALLBACK TrayHookProc(int code, WPARAM remove, LPARAM lParam) {
    auto& message = *reinterpret_cast<MSG*>(lParam);
    // What is only looked at comes by again.
    if (remove == PM_NOREMOVE) return TrayHook() ? CallNextHookEx(TrayHook(), code, remove, lParam) : 0;
    switch (message.message) {
    case TM_WINDOW_AT: return Answer(WindowAt(TrayListWindow(), message.wParam), message);
    case TM_FIND_WINDOW: return Answer(FindInList(TrayListWindow(), static_cast<DWORD>(message.wParam)), message);
    }
    // In a shell that is kept out by the user the system's other hooks don't do it.
    if (message.message == profile.settingMessage) settings.Load();
    if (IsArrival(message) && HasSecondaryTaskbar(message)) {
        message.message = WM_NULL;
        message.wParam = 0;
        message.lParam = 0;
        return 0;
    }
    return TrayHook() ? CallNextHookEx(TrayHook(), code, remove, lParam) : 0;
}

}  // namespace halyard
