// What a fuzz target consists of. The entry point is the one that fuzzing engines call; where there is none, the
// driver beside this header calls it.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// Inputs of the shape that the target expects; the driver's inputs are mutations and mixtures of them.
extern const std::span<const std::string_view> fuzzSeeds;

inline void Require(bool held, const char* property) {
    if (held) return;
    std::fprintf(stderr, "doesn't hold: %s\n", property);
    std::abort();
}

// The zero-closed text that the input begins with, in an array of just its size.
inline std::vector<char> TextOf(const std::uint8_t* data, std::size_t size) {
    const void* zero = size ? std::memchr(data, 0, size) : nullptr;
    std::vector<char> text(data, zero ? static_cast<const std::uint8_t*>(zero) : data + size);
    text.push_back(0);
    return text;
}
