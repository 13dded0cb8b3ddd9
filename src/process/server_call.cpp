#include "process/server_call.h"

#include "common/handles.h"
#include "process/shared_section.h"

namespace halyard {

namespace {

// Lives on the stack of the caller, who waits; the list holds the calls that nobody has taken yet.
struct PendingCall {
    ServerWork work;
    void* context;
    LPARAM ticket;
    PendingCall* next;
};

Lock callLock;
PendingCall* pendingCalls = nullptr;
LPARAM lastTicket = 0;

LPARAM Queue(PendingCall& call) noexcept {
    const Guard guard(callLock.Section());
    call.ticket = ++lastTicket;
    call.next = pendingCalls;
    pendingCalls = &call;
    return call.ticket;
}

PendingCall* Take(LPARAM ticket) noexcept {
    const Guard guard(callLock.Section());
    for (PendingCall** link = &pendingCalls; *link; link = &(*link)->next) {
        if ((*link)->ticket != ticket) continue;
        PendingCall* call = *link;
        *link = call->next;
        return call;
    }
    return nullptr;
}

DWORD ServerThread(DWORD& process) noexcept {
    HWND window = ServerWindow();
    return window ? GetWindowThreadProcessId(window, &process) : 0;
}

}  // namespace

bool OnServerThread() noexcept {
    DWORD process = 0;
    const DWORD thread = ServerThread(process);
    return thread == 0 || thread == GetCurrentThreadId();
}

bool IsServerWindowOurs() noexcept {
    DWORD process = 0;
    return ServerThread(process) != 0 && process == GetCurrentProcessId();
}

void RunOnServerThread(ServerWork work, void* context) noexcept {
    if (OnServerThread() || !IsServerWindowOurs()) {
        work(context);
        return;
    }
    PendingCall call = {work, context, 0, nullptr};
    const LPARAM ticket = Queue(call);
    SendMessageA(ServerWindow(), HM_CALL, 0, ticket);
    Take(ticket);
}

void RunTicket(LPARAM ticket) noexcept {
    if (const PendingCall* call = Take(ticket)) call->work(call->context);
}

}  // namespace halyard
