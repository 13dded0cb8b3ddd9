#include "server/recovery.h"

#include "process/hook_record.h"
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
    RecordHook(OwnHook::SentMessages, nullptr);
    RecordHook(OwnHook::PostedMessages, nullptr);
}

bool ClearDeadServer() noexcept {
    if (FindWindowA(ServerWindowClass, nullptr)) return false;
    DropHooks();
    // Those of a server whose shared block went with the last program that had it mapped.
    DropRecordedHooks();
    SetServerWindow(nullptr);
    SetHooksInstalled(false);
    SetCurrentDesktopId(DefaultDesktopId);
    return true;
}

}  // namespace halyard
