#include "process/string_block.h"

#include "process/program_flags.h"

#include <gtest/gtest.h>

#include <iterator>

// A language is 16 bits wide, so that sub-languages above 63 come round again.
TEST(StringBlock, TriesLanguagesInOrder) {
    // clang-format off
    constexpr unsigned Languages[][2] = {{0, 0}, {1, 0x0807}, {2, 7}, {3, 0x407}, {65, 0xFC07}, {66, 7},
                                         {101, 0x8C07}, {102, 0x809}, {103, 0x400}};
    // clang-format on
    static_assert(halyard::LanguageCount == 104);
    for (const auto& [place, language] : Languages)
        EXPECT_EQ(halyard::LanguageAt(place, 0x0807), language) << "place " << place;
}

TEST(StringBlock, FindsAStringAmongItsSixteen) {
    // "ab", nothing, "c", and one that is cut by the end.
    constexpr std::uint16_t Block[] = {2, 'a', 'b', 0, 1, 'c', 3, 'x'};
    halyard::StringUnits found = {};
    constexpr unsigned Expected[][3] = {{32, 2, 'a'}, {33, 0, 0}, {34, 1, 'c'}};
    for (const auto& [id, length, first] : Expected) {
        ASSERT_TRUE(halyard::FindInBlock(Block, std::size(Block), id, found)) << id;
        EXPECT_EQ(found.length, length) << id;
        EXPECT_TRUE(length == 0 || found.units[0] == first) << id;
    }
    for (const unsigned id : {35u, 36u, 47u})
        EXPECT_FALSE(halyard::FindInBlock(Block, std::size(Block), id, found)) << id;
}

TEST(ProgramFlags, AreSetForTheProgramsAlone) {
    EXPECT_FALSE(halyard::FlagsOfProgram("c:\\lightwav.exe").acad);
    EXPECT_TRUE(halyard::FlagsOfProgram("c:\\lightwav.exe").modeler);
}
