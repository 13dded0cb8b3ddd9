#include "server/recovery.h"

#include "process/protocol.h"
#include "process/shared_section.h"

namespace halyard {

void DropHooks() noexcept {
    // A hook procedure answers at once when its slot is 0: a call between the two steps does nothing.
    HHOOK sent = CallWndProcRetHook();
    HHOOK posted = GetMessageHook();
    SetCallWndProcRetHook(nullptr);
    if (sent) UnhookWindowsHookEx(sent);
    if (posted) UnhookWindowsHookEx(posted);
    SetGetMessageHook(nullptr);
}

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
