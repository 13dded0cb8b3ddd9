// What a server that was killed has left, put right by another process. Plain calls of the platform: nothing here needs
// the library or a server.
#pragma once

namespace halyard {

// Shows every window that a server has hidden, and gives the default desktop's background back if another one's was to
// be seen. Doesn't wait for busy programs as to the windows; the background, which comes after them, may wait for each.
// Only while no server lives.
void RecoverDesktops() noexcept;

}  // namespace halyard
