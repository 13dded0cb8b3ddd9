#include "server/server_messages.h"

#include "config/config_dialog.h"
#include "desktops/desktop_switch.h"
#include "desktops/window_calls.h"
#include "desktops/window_desktop_map.h"
#include "desktops/window_switch.h"
#include "displays/displays.h"
#include "hotkeys/find_cursor.h"
#include "hotkeys/hotkeys.h"
#include "process/failures.h"
#include "process/profile.h"
#include "process/server_call.h"
#include "process/shared_section.h"
#include "server/hotkey_actions.h"
#include "server/lifecycle.h"
#include "settings/settings.h"
#include "taskbars/extras.h"
#include "taskbars/live_taskbars.h"
#include "taskbars/shell/shell_tabs.h"
#include "taskbars/task_list.h"
#include "taskbars/taskbar_manager.h"
#include "taskbars/window_icon.h"

namespace halyard {

namespace {

HWND AsWindow(WPARAM wParam) noexcept {
    return reinterpret_cast<HWND>(wParam);
}

DesktopId AsDesktopId(LPARAM lParam) noexcept {
    return static_cast<DesktopId>(lParam);
}

LRESULT OnRegisterHotkeys() noexcept {
    RegisterHotkeys();
    return 0;
}

LRESULT OnUnregisterHotkeys() noexcept {
    UnregisterHotkeys();
    return 0;
}

LRESULT OnSwitchDesktop(DesktopId id) noexcept {
    Activate(id);
    RefreshPages();
    return 0;
}

LRESULT OnRestart(bool enable) noexcept {
    Restart(enable);
    return 0;
}

LRESULT OnWindowAttach(HWND target, DesktopId id) noexcept {
    AssignWindow(target, KnownDesktop(id));
    return 0;
}

LRESULT OnWindowFollow(HWND target, DesktopId id) noexcept {
    SendWindowTo(target, id, true);
    RefreshPages();
    return 0;
}

LRESULT OnWindowReturns(HWND target, DesktopId id) noexcept {
    windowDesktopMap.Record(target, KnownDesktop(id));
    return 0;
}

LRESULT OnWindowDetach(HWND target) noexcept {
    ForgetWindow(target);
    return 0;
}

LRESULT OnShown(HWND target, bool shown) noexcept {
    OnWindowShown(target, shown);
    return 0;
}

LRESULT OnCalls(HWND target) noexcept {
    OnWindowCalls(target);
    return 0;
}

LRESULT OnWishes(HWND target) noexcept {
    OnWindowWishes(target);
    return 0;
}

LRESULT OnOpenConfig() noexcept {
    OpenConfigDialog(0);
    return 0;
}

LRESULT OnRefreshExtras() noexcept {
    RefreshExtras();
    return 0;
}

LRESULT OnTabAdd(HWND target) noexcept {
    AddTab(target);
    return 0;
}

LRESULT OnTabDelete(HWND target) noexcept {
    DeleteTab(target);
    return 0;
}

LRESULT OnIconRead() noexcept {
    GiveReadIcons();
    return 0;
}

LRESULT OnTaskbarDelete(LPARAM taskbar) noexcept {
    if (taskbar) DeleteRetiredTaskbar(taskbar);
    return 0;
}

LRESULT OnCall(LPARAM ticket) noexcept {
    RunTicket(ticket);
    return 0;
}

LRESULT OnReadFailure(WPARAM index) noexcept {
    return FailureAtom(static_cast<unsigned>(index));
}

LRESULT OnCountWindows(DesktopId id) noexcept {
    return static_cast<LRESULT>(windowDesktopMap.CountOn(id));
}

void OnPurge() noexcept {
    windowDesktopMap.PurgeDead();
    BringInLine();
    CatchUpWithShell();
    DropDeadButtons();
}

void OnKeyboardTimer(HWND window) noexcept {
    KillTimer(window, KeyboardTimer);
    CheckKeyboard();
}

void OnDisplaysTimer(HWND window) noexcept {
    KillTimer(window, DisplaysTimer);
    // Others ask when they need to know.
    if (!settings.Run() || !settings.TaskbarsEnable()) return;
    RefreshDisplays();
    AddDisplayHotkeys();
    SyncDisplays();
}

// True: the message ends here.
bool OnTimer(HWND window, WPARAM timer) noexcept {
    if (timer == PurgeTimer) OnPurge();
    if (timer == KeyboardTimer) OnKeyboardTimer(window);
    if (timer == DisplaysTimer) OnDisplaysTimer(window);
    if (timer != FindCursorTimer) return false;
    if (!StepFindCursor()) KillTimer(window, FindCursorTimer);
    return true;
}

void OnEndSession(bool ending) noexcept {
    CallOffSessionEnd();
    if (ending) Activate(DefaultDesktopId);
}

}  // namespace

LRESULT CALLBACK ServerWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case HM_REGISTER_HOTKEYS: return OnRegisterHotkeys();
    case HM_UNREGISTER_HOTKEYS: return OnUnregisterHotkeys();
    case HM_SWITCH_DESKTOP: return OnSwitchDesktop(AsDesktopId(lParam));
    case HM_RESTART: return OnRestart(wParam != 0);
    case HM_WINDOW_ATTACH: return OnWindowAttach(AsWindow(wParam), AsDesktopId(lParam));
    case HM_WINDOW_FOLLOW: return OnWindowFollow(AsWindow(wParam), AsDesktopId(lParam));
    case HM_WINDOW_DETACH: return OnWindowDetach(AsWindow(wParam));
    case HM_WINDOW_SHOWN: return OnShown(AsWindow(wParam), lParam != 0);
    case HM_WINDOW_CALLS: return OnCalls(AsWindow(wParam));
    case HM_WINDOW_WISHES: return OnWishes(AsWindow(wParam));
    case HM_OPEN_CONFIG: return OnOpenConfig();
    case HM_WINDOW_CHANGED: return OnWindowChanged(AsWindow(wParam), lParam != 0) ? 1 : 0;
    case HM_REFRESH_EXTRAS: return OnRefreshExtras();
    case HM_TAB_ADD: return OnTabAdd(AsWindow(wParam));
    case HM_TAB_DELETE: return OnTabDelete(AsWindow(wParam));
    case HM_TASKBAR_DELETE: return OnTaskbarDelete(lParam);
    case HM_ICON_READ: return OnIconRead();
    case HM_CALL: return OnCall(lParam);
    case HM_WINDOW_RETURNS: return OnWindowReturns(AsWindow(wParam), AsDesktopId(lParam));
    case HM_READ_FAILURE: return OnReadFailure(wParam);
    case HM_COUNT_WINDOWS: return OnCountWindows(AsDesktopId(lParam));
    // Not for closing: without it hidden windows would have no way back.
    case WM_CLOSE: return 0;
    case WM_QUERYENDSESSION: ShowWindowsForSessionEnd(); break;
    case WM_ENDSESSION: OnEndSession(wParam != 0); break;
    // Not at once: on Wine, whoever tells of the change may be what a question about displays waits for.
    case WM_DISPLAYCHANGE: SetTimer(window, DisplaysTimer, DisplaysPeriod, nullptr); break;
    case WM_TIMER:
        if (OnTimer(window, wParam)) return 0;
        break;
    case WM_HOTKEY: OnHotkeyPressed(window, wParam); break;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace halyard
