// What a server that has ended without a good-bye leaves in the memory that all processes share.
#pragma once

namespace halyard {

// False where a server lives, in whatever process and over whatever copy of the library. Else the shared block is as if
// there had never been one, and hooks that were left are taken away.
bool ClearDeadServer() noexcept;

// Takes both hooks away, whoever set them, and nothing else.
void DropHooks() noexcept;

}  // namespace halyard
