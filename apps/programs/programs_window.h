// The window that shows what Halyard does in each program, and why.
#pragma once

namespace halyard::programs {

// Shows it until the user closes it; where it is open already, that one comes to the front. False when it can't be had.
bool ShowPrograms();

}  // namespace halyard::programs
