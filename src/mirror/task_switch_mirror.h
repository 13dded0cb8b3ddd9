// Shows the system's Alt+Tab window on all displays: one mirror of it in the middle of every display but the primary
// one, for as long as it is up. On the server's thread.
#pragma once

namespace halyard {

// Catches Alt+Tab and Alt+Shift+Tab from now on; starts anew where it had been started. Without its window, or with
// keys that another program holds, nothing is mirrored, silently.
void StartMirror() noexcept;
// The mirrors go, and the system's own window stays as it is. Safe when stopped.
void StopMirror() noexcept;

// Ends a task switch: the mirrors go, and the real window is told to.
void HideMirrors() noexcept;

}  // namespace halyard
