#include "server/server_window.h"

#include "process/failures.h"
#include "process/protocol.h"
#include "process/server_call.h"
#include "process/shared_section.h"

namespace halyard {

bool CreateServerWindow(WNDPROC procedure) noexcept {
    if (ServerWindow()) return true;
    WNDCLASSEXA windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = procedure;
    // Of the program, not of the library: whoever looks at the window sees whose it is.
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = ServerWindowClass;
    const ATOM atom = RegisterClassExA(&windowClass);
    HWND window =
        CreateWindowExA(0, MAKEINTATOM(atom), nullptr, 0, 0, 0, 1, 1, nullptr, nullptr, windowClass.hInstance, nullptr);
    SetServerWindow(window);
    if (!window) {
        KeepFailure("the server's window");
        return false;
    }
    SetTimer(window, PurgeTimer, PurgePeriod, nullptr);
    return true;
}

void DestroyServerWindow() noexcept {
    // Another process's server is not ours to end.
    if (!IsServerWindowOurs()) return;
    DestroyWindow(ServerWindow());
    SetServerWindow(nullptr);
    UnregisterClassA(ServerWindowClass, GetModuleHandleA(nullptr));
}

}  // namespace halyard
