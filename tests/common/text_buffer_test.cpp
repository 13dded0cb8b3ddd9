#include "common/text_buffer.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>

namespace halyard {
namespace {

void ExpectText(const TextBuffer& buffer, const char* text) {
    EXPECT_STREQ(buffer.Text(), text);
    EXPECT_EQ(buffer.Length(), std::strlen(text)) << text;
    EXPECT_EQ(buffer.IsEmpty(), *text == 0) << text;
}

TEST(TextBuffer, CopiesAreApartAndMovesTakeTheTextAlong) {
    TextBuffer first("one"), assigned("old");
    ExpectText(assigned.Append(nullptr), "old");
    ExpectText(assigned = nullptr, "");
    const TextBuffer copy(first);
    assigned = first;
    first.Append(" more");
    ExpectText(copy, "one");
    ExpectText(assigned, "one");
    TextBuffer second(std::move(first));
    ExpectText(assigned = std::move(second), "one more");
}

// The sources lie in the array that is about to be replaced.
TEST(TextBuffer, TakesItsOwnTextAsSource) {
    TextBuffer buffer("C:\\Folder\\file.bmp");
    ExpectText(buffer = *&buffer, "C:\\Folder\\file.bmp");
    ExpectText(buffer = buffer.Text() + 10, "file.bmp");
    ExpectText(buffer.Append(buffer.Text() + 5), "file.bmpbmp");
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
    ExpectText(TextBuffer(buffer), "ab");
    ExpectText(TextBuffer(std::move(buffer)).Append("cd"), "abcd");
    std::memcpy(buffer.Reserve(260), "ef", 2);
    buffer.Fit();
    ExpectText(buffer, "ef");
}

}  // namespace
}  // namespace halyard
