#include "taskbars/taskbar_window.h"

#include "common/rectangles.h"
#include "common/window_class.h"
#include "mirror/task_switch_mirror.h"
#include "process/failures.h"
#include "process/profile.h"
#include "process/protocol.h"
#include "resources/resource_ids.h"
#include "settings/store.h"
#include "taskbars/app_bar.h"
#include "taskbars/attention.h"
#include "taskbars/button_clicks.h"
#include "taskbars/button_painting.h"
#include "taskbars/docking.h"
#include "taskbars/live_taskbars.h"
#include "taskbars/overflow.h"
#include "taskbars/shell/tray_hook.h"
#include "taskbars/shell_events.h"
#include "taskbars/task_buttons.h"
#include "taskbars/task_list.h"
#include "taskbars/taskbar_end.h"
#include "taskbars/taskbar_menu.h"
#include "taskbars/taskbar_theme.h"
#include "taskbars/toolbar_guard.h"

namespace halyard {

namespace {

constexpr UINT AskMinimiseRect = 139;  // wParam: a window, lParam: the rectangle to fill
constexpr WPARAM EventCode = 0x7FFF;   // of a shell event, without the flag that some carry

// The bar of a window. A window that is being made is bound to the bar that its maker names; before that and after the
// bar's end a window has none.
SecondaryTaskbar* TaskbarOf(HWND window, UINT message, LPARAM lParam) noexcept {
    auto* bar = reinterpret_cast<SecondaryTaskbar*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (bar || message != WM_NCCREATE) return bar;
    bar = static_cast<SecondaryTaskbar*>(reinterpret_cast<const CREATESTRUCTA*>(lParam)->lpCreateParams);
    // Other programs can send this message, too.
    if (!IsLive(bar) || bar->window) return nullptr;
    bar->window = window;
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(bar));
    return bar;
}

void OnShellEvent(SecondaryTaskbar& bar, WPARAM event, HWND window) noexcept {
    if (event == HSHELL_FLASH) FlashButton(bar, window);
    switch (event & EventCode) {
    case HSHELL_WINDOWDESTROYED: OnWindowDestroyed(bar, window); break;
    case HSHELL_WINDOWACTIVATED:
        if (window) HideMirrors();
        OnWindowActivated(bar, window);
        break;
    case HSHELL_REDRAW: OnWindowRedraw(bar, window); break;
    }
}

// A shell that has started anew knows nothing of the bars.
void OnTaskbarCreated(SecondaryTaskbar& bar) noexcept {
    InstallTrayHook();
    ReadPrimaryTaskbarRect();
    AttachShellHook(bar, true);
    RegisterAppBarAnew(bar);
}

void OnSize(SecondaryTaskbar& bar, LONG width, LONG height) noexcept {
    bar.clientWidth = width;
    bar.clientHeight = height;
    LayOutButtons(bar);
}

// The toolbar's notices lie on this thread's stack. A notice that another program made up doesn't, and isn't looked at.
bool IsNotice(const SecondaryTaskbar& bar, LPARAM lParam, SIZE_T size) noexcept {
    return IsOnOwnStack(lParam, size) && reinterpret_cast<const NMHDR*>(lParam)->hwndFrom == bar.toolbar;
}

void OnToolbarClick(SecondaryTaskbar& bar, const NMMOUSE& click) noexcept {
    OnButtonClick(bar, ButtonAtAddress(bar, click.dwItemData));
}

// True: answered with `result`.
bool OnNotify(SecondaryTaskbar& bar, LPARAM lParam, LRESULT& result) noexcept {
    if (!IsNotice(bar, lParam, sizeof(NMHDR))) return true;
    switch (reinterpret_cast<const NMHDR*>(lParam)->code) {
    case static_cast<UINT>(NM_CUSTOMDRAW):
        return IsNotice(bar, lParam, sizeof(NMTBCUSTOMDRAW)) &&
               DrawButton(bar, *reinterpret_cast<const NMTBCUSTOMDRAW*>(lParam), result);
    case static_cast<UINT>(NM_CLICK):
        if (IsNotice(bar, lParam, sizeof(NMMOUSE))) OnToolbarClick(bar, *reinterpret_cast<const NMMOUSE*>(lParam));
        break;
    case static_cast<UINT>(NM_LDOWN): StartDrag(bar); break;
    case static_cast<UINT>(TBN_GETINFOTIPW):
        if (IsNotice(bar, lParam, sizeof(NMTBGETINFOTIPW))) GiveTip(bar, *reinterpret_cast<NMTBGETINFOTIPW*>(lParam));
        break;
    }
    return false;
}

void OnContextMenu(SecondaryTaskbar& bar, POINT point) noexcept {
    const int entry = HitTestButtons(bar, point);
    if (entry >= 0)
        OnButtonMenu(bar, entry, point);
    else
        ShowTaskbarMenu(bar);
}

LRESULT OnNcCalcSize(const SecondaryTaskbar& bar, WPARAM wParam, LPARAM lParam) noexcept {
    const LRESULT result = wParam ? DefWindowProcA(bar.window, WM_NCCALCSIZE, wParam, lParam) : 0;
    auto& rect = *reinterpret_cast<RECT*>(lParam);
    rect = LessSizingStrip(rect, bar.shape.edge);
    return result;
}

LRESULT OnEraseBackground(const SecondaryTaskbar& bar, HDC dc) noexcept {
    RECT client = {};
    GetClientRect(bar.window, &client);
    DrawBarBackground(bar, dc, client);
    return 1;
}

// The platform gives a window with a sizing frame a least size, which a narrow or hidden bar lies below.
void OnGetMinMaxInfo(MINMAXINFO& info) noexcept {
    info.ptMinTrackSize = {1, 1};
}

void OnThemeChanged(SecondaryTaskbar& bar) noexcept {
    ReloadTheme();
    ApplyTheme(bar);
    ApplyTaskbarRect(bar, true, false);
}

void OnTimer(SecondaryTaskbar& bar, WPARAM timer) noexcept {
    if (timer == HideTimer && TryHideTaskbar(bar)) KillTimer(bar.window, HideTimer);
    if (timer == AppBarTimer) RetryAppBar(bar);
    if (timer == FlashTimer) StepFlashing(bar);
}

// Windows NT itself asks when a window is minimised, and copies the rectangle between the programs. Elsewhere any
// program could have 16 bytes written anywhere here.
LRESULT OnAskMinimiseRect(const SecondaryTaskbar& bar, WPARAM window, LPARAM place) noexcept {
    if (!profile.copiesMinimiseRects || !place) return FALSE;
    return MinimiseRect(bar, reinterpret_cast<HWND>(window), *reinterpret_cast<RECT*>(place));
}

// Messages that end here. False: the platform answers, after whatever is done here.
bool HandleMessage(SecondaryTaskbar& bar, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) noexcept {
    switch (message) {
    case AppBarCallback: OnAppBarNotice(bar, wParam, lParam); return true;
    case WM_SIZE: OnSize(bar, LOWORD(lParam), HIWORD(lParam)); return true;
    case WM_NOTIFY: return OnNotify(bar, lParam, result);
    case WM_NOTIFYFORMAT: result = profile.isNtFamily ? NFR_UNICODE : NFR_ANSI; return true;
    case WM_CLOSE: return true;  // a bar ends by its menu
    case WM_CONTEXTMENU: OnContextMenu(bar, PointOf(lParam)); return true;
    case WM_ERASEBKGND: result = OnEraseBackground(bar, reinterpret_cast<HDC>(wParam)); return true;
    case WM_NCCALCSIZE:
        if (!HasSizingStrip(bar)) return false;
        result = OnNcCalcSize(bar, wParam, lParam);
        return true;
    case WM_GETMINMAXINFO: OnGetMinMaxInfo(*reinterpret_cast<MINMAXINFO*>(lParam)); return true;
    case WM_NCHITTEST: result = HitTestBar(bar, lParam); return true;
    case WM_NCPAINT: return DrawSizingStrip(bar);
    case AskMinimiseRect: result = OnAskMinimiseRect(bar, wParam, lParam); return true;
    case WM_COMMAND: return RunTaskbarCommand(bar, LOWORD(wParam));
    case WM_EXITSIZEMOVE: EndSizing(bar); return true;
    }
    return false;
}

// What is done before the platform answers.
void ObserveMessage(SecondaryTaskbar& bar, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    switch (message) {
    case WM_CREATE:
        if (!bar.toolbar) CreateToolbar(bar);
        break;
    case WM_ACTIVATE:
        if (wParam == WA_INACTIVE && bar.autohide) TryHideTaskbar(bar);
        break;
    case WM_NCRBUTTONUP: SendMessageA(bar.window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(bar.window), lParam); break;
    case WM_TIMER: OnTimer(bar, wParam); break;
    case WM_LBUTTONDOWN: StartDrag(bar); break;
    case WM_MOUSEMOVE: ContinueDrag(bar.window, lParam); break;
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED: EndDrag(); break;
    case WM_SIZING: ConstrainSizing(bar, *reinterpret_cast<RECT*>(lParam)); break;
    case WM_ENTERSIZEMOVE: StartSizing(bar); break;
    case WM_THEMECHANGED: OnThemeChanged(bar); break;
    }
}

LRESULT CALLBACK TaskbarWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    SecondaryTaskbar* bar = TaskbarOf(window, message, lParam);
    if (!bar) return DefWindowProcA(window, message, wParam, lParam);
    if (message == profile.shellHookMessage) {
        OnShellEvent(*bar, wParam, reinterpret_cast<HWND>(lParam));
        return 1;
    }
    if (message == profile.taskbarCreatedMessage) {
        OnTaskbarCreated(*bar);
        return 0;
    }
    LRESULT result = 0;
    if (HandleMessage(*bar, message, wParam, lParam, result)) return result;
    ObserveMessage(*bar, message, wParam, lParam);
    return DefWindowProcA(window, message, wParam, lParam);
}

WindowClass taskbarClass(TaskbarWindowClass, TaskbarWndProc, CS_DBLCLKS);

}  // namespace

void InitTaskbar(SecondaryTaskbar& bar, DWORD displayIndex, HMONITOR display, const RECT& displayRect) noexcept {
    bar.displayIndex = displayIndex;
    bar.display = display;
    bar.displayRect = displayRect;
    bar.shape.edge = ReadIndexedValue(displayIndex, EdgeValue, BottomEdge);
    bar.onTop = ReadIndexedValue(displayIndex, OnTopValue, 1) != 0;
    const bool autohide = ReadIndexedValue(displayIndex, AutohideValue, 0) != 0;
    const bool locked = ReadIndexedValue(displayIndex, LockedValue, 0) != 0;
    ReloadTheme();
    const RECT place = ComputeTaskbarRect(bar);
    taskbarClass.Create(profile.moduleInstance, WS_EX_TOOLWINDOW, ClassicMetrics.windowStyle, place, nullptr, &bar);
    if (!bar.window) {
        KeepFailure("a taskbar's window");
        return;
    }
    ApplyTheme(bar);
    AttachShellHook(bar, true);
    ApplyOnTop(bar);
    // `SetAutohide` ignores an unchanged state, so start from the opposite one.
    bar.autohide = !autohide;
    SetAutohide(bar, autohide);
    // Posted, so that the lock is applied and stored as if the user had chosen it.
    if (locked) PostMessageA(bar.window, WM_COMMAND, IDC_LOCK_TASKBAR, 0);
}

void UnregisterTaskbarClass() noexcept {
    taskbarClass.Unregister();
}

}  // namespace halyard
