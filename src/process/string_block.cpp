#include "process/string_block.h"

namespace halyard {

bool FindInBlock(const std::uint16_t* block, std::size_t units, unsigned id, StringUnits& found) noexcept {
    std::size_t at = 0;
    for (unsigned before = id & 15; before > 0; --before) {
        if (at >= units) return false;
        at += static_cast<std::size_t>(block[at]) + 1;
    }
    if (at >= units || block[at] > units - at - 1) return false;
    found = {block + at + 1, block[at]};
    return true;
}

std::uint16_t LanguageAt(unsigned place, std::uint16_t userLanguage) noexcept {
    constexpr unsigned FirstSub = 2;
    constexpr unsigned SubCount = 100;
    constexpr std::uint16_t EnglishUk = 0x809;
    constexpr std::uint16_t NeutralDefault = 0x400;
    if (place == 0) return 0;
    if (place == 1) return userLanguage;
    if (place < FirstSub + SubCount)
        return static_cast<std::uint16_t>(((place - FirstSub) << 10) | (userLanguage & 0x3FF));
    return place == FirstSub + SubCount ? EnglishUk : NeutralDefault;
}

}  // namespace halyard
