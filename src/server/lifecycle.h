// The server's start, stop, and the installing and removing of the hooks. On the server's thread.
#pragma once

namespace halyard {

void StartServer() noexcept;
void StopServer() noexcept;

// Hooks and extras in or out, kept in the `Run` setting.
void TurnOn() noexcept;
void TurnOff() noexcept;

// Only the hooks, with the hotkeys. Nothing where they are in, or out, already.
void InstallHooks() noexcept;
// Every hidden window is shown and the default desktop current before the hooks go.
void RemoveHooks() noexcept;

// Out, settings read from the registry again, and in again if `enable`.
void Restart(bool enable) noexcept;

}  // namespace halyard
