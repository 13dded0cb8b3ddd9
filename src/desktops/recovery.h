// The default desktop's background after the server was killed, given back by another process. Plain calls of the
// platform: nothing here needs the library or a server.
#pragma once

namespace halyard {

// Nothing where no other desktop's background was to be seen. May wait for each program that is busy. Only while no
// server lives.
void RecoverBackground() noexcept;

}  // namespace halyard
