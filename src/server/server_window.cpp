#include "server/server_window.h"

#include "common/entry.h"
#include "common/window_class.h"
#include "process/failures.h"
#include "process/protocol.h"
#include "process/server_call.h"
#include "process/shared_section.h"

#include <optional>

namespace halyard {

namespace {

std::optional<WindowClass> serverClass;

// Before the others: windows that this system has hidden must be seen when their programs are asked. The Windows 9x
// family has no order.
void AskToBeToldFirst() noexcept {
    constexpr DWORD First = 0x3FF;  // of the levels that a program may take
    const auto set =
        EntryOf<BOOL(WINAPI*)(DWORD, DWORD)>(GetModuleHandleA("kernel32.dll"), "SetProcessShutdownParameters");
    if (set) set(First, 0);
}

}  // namespace

bool CreateServerWindow(WNDPROC procedure) noexcept {
    if (ServerWindow()) return true;
    // Of the program, not of the library: whoever looks at the window sees whose it is.
    serverClass.emplace(ServerWindowClass, procedure);
    HWND window = serverClass->Create(GetModuleHandleA(nullptr), 0, 0, {0, 0, 1, 1});
    SetServerWindow(window);
    if (!window) {
        KeepFailure("the server's window");
        return false;
    }
    AskToBeToldFirst();
    SetTimer(window, PurgeTimer, PurgePeriod, nullptr);
    return true;
}

void DestroyServerWindow() noexcept {
    // Another process's server is not ours to end.
    if (!IsServerWindowOurs()) return;
    DestroyWindow(ServerWindow());
    SetServerWindow(nullptr);
    if (serverClass) serverClass->Unregister();
}

}  // namespace halyard
