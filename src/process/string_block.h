// The platform's layout of string resources, and the order in which languages are tried.
#pragma once

#include <cstddef>
#include <cstdint>

namespace halyard {

// Strings lie in blocks of 16, numbered from 1.
constexpr unsigned StringBlock(unsigned id) noexcept {
    return (id >> 4) + 1;
}

// A run of UTF-16 units inside a block, without a closing zero.
struct StringUnits {
    const std::uint16_t* units;
    unsigned length;
};

// Finds string `id` in its block: 16 counted strings, each a length in units and then that many units. `units` is the
// size of the block in units. False when the block ends before the string does. An absent string has length 0.
bool FindInBlock(const std::uint16_t* block, std::size_t units, unsigned id, StringUnits& found) noexcept;

// Languages in the order of the search: neutral, the user's, the user's primary language with each sub-language from 0
// through 99, English of the United Kingdom, the system's default.
inline constexpr unsigned LanguageCount = 104;
std::uint16_t LanguageAt(unsigned place, std::uint16_t userLanguage) noexcept;

}  // namespace halyard
