#include "common/text_buffer.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>

namespace halyard {
namespace {

TEST(TextBuffer, CopiesAreApartAndMovesTakeTheTextAlong) {
    TextBuffer first("one"), assigned("old");
    const TextBuffer copy(first);
    assigned = first;
    first.Append(" more").Append(nullptr);
    EXPECT_STREQ(copy.Text(), "one");
    EXPECT_STREQ(assigned.Text(), "one");
    EXPECT_STREQ((assigned = std::move(first)).Text(), "one more");
    // The sources lie in the array that is about to be replaced.
    EXPECT_STREQ((assigned = *&assigned).Text(), "one more");
    EXPECT_STREQ((assigned = assigned.Text() + 4).Text(), "more");
    EXPECT_STREQ(assigned.Append(assigned.Text() + 2).Text(), "morere");
}

// The length is the room until it is fitted; copies and appended texts go by the text.
TEST(TextBuffer, ReserveGivesZeroedRoomAndItsSizeAsLength) {
    TextBuffer buffer("an older and longer text");
    char* room = buffer.Reserve(5);
    ASSERT_NE(room, nullptr);
    EXPECT_EQ(std::string(room, 6), std::string(6, '\0'));
    EXPECT_TRUE(buffer.IsEmpty());
    std::memcpy(room, "ab", 2);
    EXPECT_EQ(buffer.Length(), 5u);
    EXPECT_EQ(TextBuffer(buffer).Length(), 2u);
    EXPECT_STREQ(TextBuffer(std::move(buffer)).Append("cd").Text(), "abcd");
    std::memcpy(buffer.Reserve(260), "ef", 2);
    buffer.Fit();
    EXPECT_EQ(buffer.Length(), 2u);
    EXPECT_STREQ(buffer.Text(), "ef");
}

}  // namespace
}  // namespace halyard
