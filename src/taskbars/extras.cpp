#include "taskbars/extras.h"

#include "mirror/task_switch_mirror.h"
#include "process/profile.h"
#include "process/shared_section.h"
#include "settings/settings.h"
#include "taskbars/app_bar.h"
#include "taskbars/shell/tray_hook.h"
#include "taskbars/taskbar_end.h"
#include "taskbars/taskbar_manager.h"
#include "taskbars/taskbar_window.h"
#include "taskbars/window_icon.h"

#include <commctrl.h>

namespace halyard {

bool StartExtras() noexcept {
    if (!profile.enumDisplayMonitors) return false;
    InitCommonControls();
    InstallTrayHook();
    ReadPrimaryTaskbarRect();
    // While the shell made its objects, an order to turn everything off may have come in.
    if (!HooksInstalled()) RemoveTrayHook();
    RefreshExtras();
    return true;
}

void StopExtras() noexcept {
    RemoveTrayHook();
    DestroyAllTaskbars();
    UnregisterTaskbarClass();
    OutliveIconAnswers();
    StopMirror();
}

void RefreshExtras() noexcept {
    const bool hasExtras = HooksInstalled();
    if (hasExtras && settings.TaskswitchMirrorEnable())
        StartMirror();
    else
        StopMirror();
    // Last, since it may wait for the shell and let messages in meanwhile: one of them may turn everything off.
    if (hasExtras && settings.TaskbarsEnable()) {
        SyncDisplays();
        FillTaskbars();
    } else {
        DestroyAllTaskbars();
    }
}

}  // namespace halyard
