#include "process/foreground.h"

#include "process/profile.h"
#include "process/shared_section.h"

namespace halyard {

void AllowServerForeground() noexcept {
    DWORD server = 0;
    GetWindowThreadProcessId(ServerWindow(), &server);
    const auto allow = EntryOf<BOOL(WINAPI*)(DWORD)>(GetModuleHandleA("user32.dll"), "AllowSetForegroundWindow");
    if (server && allow) allow(server);
}

}  // namespace halyard
