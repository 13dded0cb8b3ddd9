// What a server that was killed has left, put right by another process. Plain calls of the platform: nothing here needs
// the library or a server.
#pragma once

namespace halyard {

// Shows every window that a server has hidden, gives the background and the primary taskbar's buttons back, and takes
// the hooks away. The windows come first and wait for no program; what comes after them may wait for each and for the
// shell. Only while no server lives.
void RescueSession() noexcept;

}  // namespace halyard
