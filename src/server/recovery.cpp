#include "server/recovery.h"

#include "process/protocol.h"
#include "process/shared_section.h"
#include "server/lifecycle.h"

namespace halyard {

bool ClearDeadServer() noexcept {
    if (FindWindowA(ServerWindowClass, nullptr)) return false;
    // Not every platform takes system-wide hooks away with the thread that set them.
    DropHooks();
    SetServerWindow(nullptr);
    SetHooksInstalled(false);
    SetCurrentDesktopId(DefaultDesktopId);
    return true;
}

}  // namespace halyard
