// Tells when a block of memory is given back.
#pragma once

namespace halyard::test {

// Counts the releases of `block` from now on; null ends the watch.
void WatchRelease(const void* block);
int Releases();

}  // namespace halyard::test
