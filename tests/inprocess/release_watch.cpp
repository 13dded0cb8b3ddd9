#include "release_watch.h"

#include <cstdlib>
#include <new>

namespace {

const void* watched = nullptr;
int releases = 0;

void Release(void* block) noexcept {
    if (block && block == watched) ++releases;
    std::free(block);
}

}  // namespace

// In the place of the language's own for the whole program. Its allocation is that of the C library.
void operator delete(void* block) noexcept {
    Release(block);
}

void operator delete(void* block, std::size_t) noexcept {
    Release(block);
}

namespace halyard::test {

void WatchRelease(const void* block) {
    watched = block;
    releases = 0;
}

int Releases() {
    return releases;
}

}  // namespace halyard::test
