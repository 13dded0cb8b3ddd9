#include "hook/behaviours.h"
#include "hook/desktop_menu.h"
#include "hook/hook_procs.h"
#include "hook/reload.h"
#include "hook/thread_table.h"
#include "process/profile.h"
#include "process/shared_section.h"
#include "settings/settings.h"

namespace halyard {

namespace {

WPARAM ToggleCommand(const TrackedWindow& tracked, DWORD style) noexcept {
    const bool spanning = tracked.maximisedAcross && profile.program.acad;
    return spanning || (style & WS_MAXIMIZE) ? SC_RESTORE : SC_MAXIMIZE;
}

DWORD StyleOf(HWND window) noexcept {
    return static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE));
}

void Cancel(MSG& message) noexcept {
    message.message = WM_NULL;
}

// The double-click that starts or ends spanning becomes the command of the menu, so that both take the same road. Any
// other is the program's.
bool OnCaptionDoubleClick(MSG& message) noexcept {
    const DWORD style = StyleOf(message.hwnd);
    if ((style & WS_CHILD) || !(style & WS_MAXIMIZEBOX)) return false;
    TrackedWindow* tracked = TrackedWindowOf(message.hwnd);
    if (!tracked || tracked->IsDialog() || tracked->lastHitTest != HTCAPTION) return false;
    tracked->lastHitTest = 0;
    const WPARAM command = ToggleCommand(*tracked, style);
    if (!ChangesSpanning(*tracked, command)) return false;
    MSG waiting;
    if (!PeekMessageA(&waiting, message.hwnd, WM_SYSCOMMAND, WM_SYSCOMMAND, PM_NOREMOVE))
        PostMessageA(message.hwnd, WM_SYSCOMMAND, command, 0);
    SetCapture(nullptr);
    Cancel(message);
    return true;
}

// Where taking the mouse away doesn't end the tracking of the button, the cursor seems to have left it before it comes
// up.
void EndTracking(MSG& message) noexcept {
    constexpr POINT FarOff = {-32000, -32000};
    constexpr LPARAM FarOffParam = 0x83008300;  // the same, as mouse messages carry it
    PostMessageA(message.hwnd, WM_LBUTTONUP, 0, FarOffParam);
    message.message = WM_MOUSEMOVE;
    message.pt = FarOff;
    message.lParam = FarOffParam;
}

bool OnButtonUp(MSG& message) noexcept {
    OnDesktopButtonUp(message.hwnd);
    TrackedWindow* tracked = TrackedWindowOf(message.hwnd);
    if (!tracked || tracked->lastHitTest != HTMAXBUTTON) return false;
    tracked->lastHitTest = 0;
    const DWORD style = StyleOf(message.hwnd);
    const WPARAM command = ToggleCommand(*tracked, style);
    if (!(style & WS_MAXIMIZEBOX) || !ChangesSpanning(*tracked, command)) return false;
    SetCapture(nullptr);
    if (profile.tracksButtonsWithoutCapture)
        EndTracking(message);
    else
        Cancel(message);
    PostMessageA(message.hwnd, WM_SYSCOMMAND, command, 0);
    return true;
}

// A menu chosen by mouse and key can leave the same command in the queue twice. Taking the second one out brings this
// hook again, which must not carry it out.
void DropDuplicate(const MSG& message) noexcept {
    ThreadWindows& windows = *threadTable->ForCurrentThread();
    MSG waiting;
    windows.isTaking = true;
    if (PeekMessageA(&waiting, message.hwnd, WM_SYSCOMMAND, WM_SYSCOMMAND, PM_NOREMOVE) &&
        waiting.wParam == message.wParam)
        PeekMessageA(&waiting, message.hwnd, WM_SYSCOMMAND, WM_SYSCOMMAND, PM_REMOVE);
    windows.isTaking = false;
}

bool RunCommand(TrackedWindow& tracked, MSG& message) noexcept {
    if (!HandleSysCommand(tracked, message.wParam, message.lParam)) return false;
    Cancel(message);
    return true;
}

bool OnSysCommand(MSG& message) noexcept {
    TrackedWindow* tracked = TrackedWindowOf(message.hwnd);
    if (!tracked) return false;
    if (IsExtensionCommand(static_cast<UINT>(message.wParam))) DropDuplicate(message);
    tracked->lastHitTest = 0;
    return RunCommand(*tracked, message);
}

// On Wine what is chosen in a submenu of the system menu is posted as an ordinary command. It becomes the one that it
// is on Windows. A program's own command of the same number, while no extension is open, goes to the program.
bool OnCommand(MSG& message) noexcept {
    if (!IsExtensionCommand(static_cast<UINT>(message.wParam))) return false;
    if (!profile.program.qlplay && !profile.postsMenuCommands) return false;
    TrackedWindow* tracked = TrackedWindowOf(message.hwnd);
    if (!tracked) return false;
    if (profile.program.qlplay) return RunCommand(*tracked, message);
    if (!tracked->extensionOpen || message.lParam != 0) return false;
    tracked->extensionOpen = false;
    message.message = WM_SYSCOMMAND;
    return OnSysCommand(message);
}

void OnStart(HWND window) noexcept {
    TrackedWindow* tracked = TrackedWindowOf(window);
    if (!tracked) return;
    // On Wine the library stays in the program when the hooks go, so the record may be older than the hooks.
    tracked->ForgetDesktop();
    tracked->Classify();
    tracked->NotifyServer(true);
}

// Each window gets the message, and a process reads the registry at the first of them.
void OnSettingsChanged(HWND window, WPARAM kind, LPARAM number) noexcept {
    TrackedWindow* tracked = TrackedWindowOf(window);
    if (!tracked) return;
    if (kind == static_cast<WPARAM>(SettingKind::Settings)) ReloadSettings(number);
    if (kind == static_cast<WPARAM>(SettingKind::Desktops)) ReloadDesktops(number);
    // Without desktops every window is on the default one, whatever was chosen for it before.
    if (!settings.MultiDesk()) tracked->ForgetDesktop();
    RemoveMenuExtension(*tracked);
    AddMenuExtension(*tracked);
}

bool IsOfInterest(const MSG& message) noexcept {
    switch (message.message) {
    case WM_NCLBUTTONDBLCLK:
    case WM_LBUTTONUP:
    case WM_SYSCOMMAND:
    case WM_COMMAND: return true;
    }
    return message.message == profile.restartMessage || message.message == profile.settingMessage;
}

// On 64-bit Windows a hook for programs of the other bitness runs on the thread that set it, for windows of any
// program. That thread is the server's.
bool IsForeignWindow(HWND window) noexcept {
    return profile.isServerProcess && window && GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId();
}

}  // namespace

bool FilterTakenMessage(MSG& message) noexcept {
    switch (message.message) {
    case WM_NCLBUTTONDBLCLK: return OnCaptionDoubleClick(message);
    case WM_LBUTTONUP: return OnButtonUp(message);
    case WM_SYSCOMMAND: return OnSysCommand(message);
    case WM_COMMAND: return OnCommand(message);
    }
    if (message.message == profile.restartMessage && message.lParam != 0) OnStart(message.hwnd);
    if (message.message == profile.settingMessage) OnSettingsChanged(message.hwnd, message.wParam, message.lParam);
    return false;
}

LRESULT CALLBACK GetMessageHookProc(int code, WPARAM remove, LPARAM message) {
    auto& taken = *reinterpret_cast<MSG*>(message);
    // With a remove flag of 0 the message is only being looked at, and comes by again.
    if (code >= 0 && profile.hookEngineActive && remove != PM_NOREMOVE && IsOfInterest(taken) && threadTable &&
        !IsForeignWindow(taken.hwnd)) {
        ThreadWindows* windows = threadTable->ForCurrentThread();
        if (windows && !windows->isTaking) {
            const ThreadWindows::Pin pin(*windows);
            if (FilterTakenMessage(taken)) return 0;
        }
    }
    return CallNextHookEx(GetMessageHook(), code, remove, message);
}

}  // namespace halyard
