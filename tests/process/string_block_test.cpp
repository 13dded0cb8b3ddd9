#include "process/string_block.h"

#include <gtest/gtest.h>

// A language is 16 bits wide, so that sub-languages above 63 come round again.
TEST(StringBlock, NumbersBlocksAndTriesLanguagesInOrder) {
    // clang-format off
    constexpr unsigned Languages[][2] = {{0, 0}, {1, 0x0807}, {2, 7}, {3, 0x407}, {65, 0xFC07}, {66, 7},
                                         {101, 0x8C07}, {102, 0x809}, {103, 0x400}};
    // clang-format on
    static_assert(halyard::LanguageCount == 104);
    for (const auto& [place, language] : Languages)
        EXPECT_EQ(halyard::LanguageAt(place, 0x0807), language) << "place " << place;
    constexpr unsigned Blocks[][2] = {{0, 1}, {15, 1}, {16, 2}, {2015, 126}, {2016, 127}};
    for (const auto& [id, block] : Blocks)
        EXPECT_EQ(halyard::StringBlock(id), block) << "id " << id;
}
