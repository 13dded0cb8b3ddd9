#include "taskbars/taskbar_end.h"

#include "process/protocol.h"
#include "process/shared_section.h"
#include "settings/store.h"
#include "taskbars/app_bar.h"
#include "taskbars/docking.h"
#include "taskbars/live_taskbars.h"
#include "taskbars/shell_events.h"
#include "taskbars/task_list.h"

namespace halyard {

namespace {

void StoreTaskbar(const SecondaryTaskbar& bar) noexcept {
    WriteIndexedValue(bar.displayIndex, EdgeValue, bar.shape.edge);
    WriteIndexedValue(bar.displayIndex, AutohideValue, bar.autohide);
    WriteIndexedValue(bar.displayIndex, OnTopValue, bar.onTop);
    WriteIndexedValue(bar.displayIndex, LockedValue, bar.shape.locked);
}

}  // namespace

void DestroyTaskbar(SecondaryTaskbar& bar) noexcept {
    if (!RetireTaskbar(bar)) return;
    StoreTaskbar(bar);
    while (bar.buttons.Count() > 0)
        RemoveButton(bar, bar.buttons.At(0)->window, true);
    AttachShellHook(bar, false);
    ForgetDrag(bar);
    // An unbound window passes its last messages on to the platform.
    SetWindowLongPtrA(bar.window, GWLP_USERDATA, 0);
    DestroyWindow(bar.window);
    ReleaseAppBar(bar);
    PostMessageA(ServerWindow(), HM_TASKBAR_DELETE, 0, reinterpret_cast<LPARAM>(&bar));
}

void DestroyAllTaskbars() noexcept {
    while (TaskbarCount() > 0)
        DestroyTaskbar(TaskbarAt(0));
}

}  // namespace halyard
