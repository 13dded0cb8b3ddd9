#include "server/lifecycle.h"

#include "config/config_dialog.h"
#include "desktops/background.h"
#include "desktops/desktop_list.h"
#include "desktops/desktop_switch.h"
#include "desktops/hidden_mark.h"
#include "desktops/kept_background.h"
#include "desktops/window_switch.h"
#include "hook/hook_procs.h"
#include "hotkeys/hotkey_storage.h"
#include "hotkeys/hotkeys.h"
#include "process/broadcasts.h"
#include "process/com.h"
#include "process/failures.h"
#include "process/hook_record.h"
#include "process/profile.h"
#include "process/shared_section.h"
#include "server/first_run.h"
#include "server/recovery.h"
#include "server/server_window.h"
#include "settings/settings.h"
#include "taskbars/extras.h"
#include "taskbars/shell/shell_tabs.h"

namespace halyard {

bool StartServer(WNDPROC procedure) noexcept {
    // Another process's server keeps its windows, its hooks and its record.
    if (!ClearDeadServer()) return false;
    profile.isServerProcess = true;
    BindCom();
    GiveTabsBack();
    if (Desktop* standard = desktopList.Find(DefaultDesktopId)) {
        CaptureBackground(*standard);
        ShowMarkedWindows();
        if (ReadDefaultBackground(*standard)) ApplyBackground(*standard);
        DropDefaultBackground();
    }
    // Before the hooks, which talk to the window at once.
    if (!CreateServerWindow(procedure)) return false;
    StartWizardIfDue();
    if (settings.Run()) TurnOn();
    return true;
}

void StopServer() noexcept {
    if (!profile.isServerProcess) return;
    StopExtras();
    RemoveHooks();
    DestroyConfigDialog();
    DestroyServerWindow();
}

void TurnOn() noexcept {
    if (!profile.isServerProcess) return;
    InstallHooks();
    // Before the extras, which let messages in: an order to turn off that comes then has the last word.
    settings.SetRun(true);
    StartExtras();
}

void TurnOff() noexcept {
    if (!profile.isServerProcess) return;
    RemoveHooks();
    StopExtras();
    settings.SetRun(false);
}

namespace {

HHOOK SetHook(int kind, HOOKPROC procedure, OwnHook which, const char* name) noexcept {
    HHOOK hook = SetWindowsHookExA(kind, procedure, profile.moduleInstance, 0);
    RecordHook(which, hook);
    if (!hook) KeepFailure(name);
    return hook;
}

}  // namespace

void InstallHooks() noexcept {
    if (HooksInstalled()) return;
    SetCallWndProcRetHook(
        SetHook(WH_CALLWNDPROCRET, CallWndProcRetHookProc, OwnHook::SentMessages, "the hook of sent messages"));
    SetGetMessageHook(
        SetHook(WH_GETMESSAGE, GetMessageHookProc, OwnHook::PostedMessages, "the hook of posted messages"));
    if (!CallWndProcRetHook() || !GetMessageHook()) {
        // One without the other would leave windows that nothing looks after.
        DropHooks();
        return;
    }
    SetHooksInstalled(true);
    LoadHotkeys();
    RegisterHotkeys();
    BroadcastStart();
    RefreshPages();
}

void RemoveHooks() noexcept {
    if (!HooksInstalled()) return;
    SetHooksInstalled(false);
    // First the default desktop with its order and front, then the windows of the others.
    Activate(DefaultDesktopId);
    ReleaseAllWindows();
    UnregisterHotkeys();
    BroadcastEnd();
    DropHooks();
    // On Windows each program lets the library go when its threads have been awake once.
    WakeAllThreads();
    RefreshPages();
}

void Restart(bool enable) noexcept {
    RemoveHooks();
    settings.Load();
    desktopList.Load();
    if (enable) TurnOn();
}

}  // namespace halyard
