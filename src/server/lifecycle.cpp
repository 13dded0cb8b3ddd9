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
#include "process/profile.h"
#include "process/shared_section.h"
#include "server/first_run.h"
#include "server/server_window.h"
#include "settings/settings.h"
#include "taskbars/extras.h"

namespace halyard {

void StartServer() noexcept {
    profile.isServerProcess = true;
    BindCom();
    if (Desktop* standard = desktopList.Find(DefaultDesktopId)) {
        CaptureBackground(*standard);
        if (ClearDeadServer()) {
            ShowMarkedWindows();
            if (ReadDefaultBackground(*standard)) ApplyBackground(*standard);
            DropDefaultBackground();
        }
    }
    // The hooks talk to the window at once, so that they come behind it.
    CreateServerWindow();
    StartWizardIfDue();
    if (settings.Run()) TurnOn();
}

void StopServer() noexcept {
    StopExtras();
    RemoveHooks();
    DestroyConfigDialog();
    DestroyServerWindow();
}

void TurnOn() noexcept {
    InstallHooks();
    StartExtras();
    settings.SetRun(true);
}

void TurnOff() noexcept {
    RemoveHooks();
    StopExtras();
    settings.SetRun(false);
}

void InstallHooks() noexcept {
    if (HooksInstalled()) return;
    SetHooksInstalled(true);
    LoadHotkeys();
    RegisterHotkeys();
    SetCallWndProcRetHook(SetWindowsHookExA(WH_CALLWNDPROCRET, CallWndProcRetHookProc, profile.moduleInstance, 0));
    SetGetMessageHook(SetWindowsHookExA(WH_GETMESSAGE, GetMessageHookProc, profile.moduleInstance, 0));
    BroadcastRestart(true);
    RefreshPages();
}

void RemoveHooks() noexcept {
    if (!HooksInstalled()) return;
    SetHooksInstalled(false);
    // First the default desktop with its order and front, then the windows of the others.
    Activate(DefaultDesktopId);
    ReleaseAllWindows();
    UnregisterHotkeys();
    // The hook procedure answers at once when its slot is 0: a call between the two steps does nothing.
    HHOOK hook = CallWndProcRetHook();
    SetCallWndProcRetHook(nullptr);
    UnhookWindowsHookEx(hook);
    UnhookWindowsHookEx(GetMessageHook());
    SetGetMessageHook(nullptr);
    BroadcastRestart(false);
    RefreshPages();
}

void Restart(bool enable) noexcept {
    RemoveHooks();
    settings.Load();
    if (enable) TurnOn();
}

}  // namespace halyard
