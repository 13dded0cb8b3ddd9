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
    first.Append(" more");
    EXPECT_STREQ(copy.Text(), "one");
    EXPECT_STREQ(assigned.Text(), "one");
    TextBuffer second(std::move(first));
    EXPECT_STREQ((assigned = std::move(second)).Text(), "one more");
}

// The sources lie in the array that is about to be replaced.
TEST(TextBuffer, TakesItsOwnTextAsSource) {
    TextBuffer buffer("C:\\Folder\\file.bmp");
    EXPECT_STREQ((buffer = buffer.Text() + 10).Text(), "file.bmp");
    EXPECT_STREQ(buffer.Append(buffer.Text() + 5).Text(), "file.bmpbmp");
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
