#include "server/rescue.h"

#include "desktops/hidden_mark.h"
#include "desktops/recovery.h"
#include "process/com.h"
#include "process/hook_record.h"
#include "taskbars/shell/shell_tabs.h"

namespace halyard {

void RescueSession() noexcept {
    ShowMarkedWindows();
    DropRecordedHooks();
    BindCom();
    RecoverBackground();
    GiveTabsBack();
}

}  // namespace halyard
