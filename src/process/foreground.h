// The right to come to the foreground, which some systems grant only to the program that the user works with.
#pragma once

namespace halyard {

// Gives this program's right to the server, which is about to show a window. Nothing where the system has no such
// guard, or this program no such right.
void AllowServerForeground() noexcept;

}  // namespace halyard
