#include "common/message_wait.h"

namespace halyard {

bool WaitAnswering(HANDLE object, DWORD limit) noexcept {
    const DWORD start = GetTickCount();
    for (DWORD waited = 0; waited < limit; waited = GetTickCount() - start) {
        if (MsgWaitForMultipleObjects(1, &object, FALSE, limit - waited, QS_SENDMESSAGE) == WAIT_OBJECT_0) return true;
        MSG message;
        PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE | (QS_SENDMESSAGE << 16));
    }
    return WaitForSingleObject(object, 0) == WAIT_OBJECT_0;
}

}  // namespace halyard
