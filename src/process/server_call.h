// Hands work to the server's thread, which alone changes the server's lists.
#pragma once

#include "common/win_types.h"

namespace halyard {

// Whether the caller runs on the thread of the server window, or there is no such window.
bool OnServerThread() noexcept;

// Whether the server window lives in this process.
bool IsServerWindowOurs() noexcept;

using ServerWork = void (*)(void* context);

// Runs `work(context)` on the server's thread and waits for it: at once where that is the caller's, else by a sent
// message. Only in the server process. Nothing happens if the server window goes away meanwhile.
void RunOnServerThread(ServerWork work, void* context) noexcept;

// The same for anything that can be called.
template <typename Callable>
void RunOnServerThread(Callable&& callable) noexcept {
    RunOnServerThread([](void* context) { (*static_cast<Callable*>(context))(); }, &callable);
}

// The server window's side: runs the work that `ticket` stands for, once. Any program can send the message, so that a
// number which we didn't hand out does nothing.
void RunTicket(LPARAM ticket) noexcept;

}  // namespace halyard
