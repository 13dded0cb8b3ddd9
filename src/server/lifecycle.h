// The server's start, stop, and the installing and removing of the hooks. On the server's thread.
#pragma once

#include "common/win_types.h"

namespace halyard {

// `procedure` becomes that of the server's window. False where another process is the server already, or the window
// can't be made: nothing is turned on then.
bool StartServer(WNDPROC procedure) noexcept;
void StopServer() noexcept;

// Hooks and extras in or out, kept in the `Run` setting.
void TurnOn() noexcept;
void TurnOff() noexcept;

// Only the hooks, with the hotkeys. Nothing where they are in, or out, already.
void InstallHooks() noexcept;
// Every hidden window is shown, the default desktop current, and every program clean of our menus before the hooks go.
void RemoveHooks() noexcept;

// Out, settings read from the registry again, and in again if `enable`.
void Restart(bool enable) noexcept;

}  // namespace halyard
