// The stored bindings. Any thread of the server process; the work is done on the server's, which is waited for.
#pragma once

namespace halyard {

// Rebuilds the list and reads what is bound; a binding of an action that isn't in the list is passed over. Without the
// key nothing is bound.
void LoadHotkeys() noexcept;
// Only if the list was never loaded.
void LoadHotkeysOnce() noexcept;

// Rewrites all bindings. Nothing for a list that was never loaded, nor without the right to write.
void SaveHotkeys() noexcept;

}  // namespace halyard
