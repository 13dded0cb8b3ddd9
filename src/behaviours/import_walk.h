// A walk over the imports of a mapped module, on a span of bytes.
#pragma once

#include <cstddef>
#include <cstdint>

namespace halyard {

// A mapped PE image: its bytes as they lie in memory. Nothing outside of them is read.
struct MappedImage {
    const unsigned char* bytes;
    std::size_t size;
};

// Finds in the import address tables of `image` the entries that hold `address` and calls `found(context, offset)` with
// the offset of each from the image's first byte. Entries are as wide as a pointer, as the loader of this program's
// bitness leaves them. A header, descriptor or entry that lies outside of the image ends the walk of what it belongs
// to.
void FindImports(const MappedImage& image, std::uintptr_t address, void (*found)(void* context, std::size_t offset),
                 void* context) noexcept;

}  // namespace halyard
