#include "behaviours/memory_record.h"
#include "support/rect_values.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace halyard::test {
namespace {

constexpr LONG Least = std::numeric_limits<LONG>::min();
constexpr LONG Most = std::numeric_limits<LONG>::max();

using Record = std::vector<BYTE>;

// The numbers behind the two switches, each in four bytes.
Record RecordOf(const std::vector<LONG>& numbers, BYTE spanning = 1, BYTE topmost = 1) {
    Record record = {spanning, topmost};
    for (const LONG number : numbers)
        for (int shift = 0; shift < 32; shift += 8)
            record.push_back(static_cast<BYTE>(static_cast<DWORD>(number) >> shift));
    return record;
}

const std::vector<LONG> Good = {44, 2, 3, -32000, -31999, -4, -3, -1200, -77, 300, 0x0304};

// The record as it is written again, empty for one that isn't taken.
Record Again(const Record& record) {
    WindowMemory memory;
    if (!DecodeWindowMemory(record.data(), record.size(), memory)) return {};
    BYTE written[MemoryRecordSize];
    EncodeWindowMemory(memory, written);
    return {written, written + sizeof(written)};
}

TEST(MemoryRecord, HasItsFieldsAtTheirOffsets) {
    EXPECT_EQ(RecordOf(Good), Again(RecordOf(Good)));
    WindowMemory memory;
    ASSERT_TRUE(DecodeWindowMemory(RecordOf(Good).data(), 46, memory));
    EXPECT_TRUE(memory.maximisedAcross && memory.topmost);
    EXPECT_EQ(3u, memory.showCommand);
    EXPECT_EQ((RECT{-1200, -77, 300, 0x0304}), memory.normalRect);
}

TEST(MemoryRecord, OfAnotherSizeIsNone) {
    for (const std::size_t size : {0u, 1u, 45u, 47u, 200u}) {
        // A block of just this size, so that a read beside it shows.
        Record exact = RecordOf(Good);
        exact.resize(size, 1);
        exact.shrink_to_fit();
        EXPECT_EQ(Record(), Again(exact)) << size;
    }
}

TEST(MemoryRecord, WithARectangleThatNoWindowHasIsNone) {
    constexpr LONG Far = 0x100000;
    constexpr std::pair<RECT, bool> Cases[] = {
        {{0, 0, 1, 1}, true},
        {{1 - Far, 1 - Far, Far - 1, Far - 1}, true},
        {{-Far, 0, 100, 100}, false},
        {{0, 0, 100, Far}, false},
        {{0, 0, 0, 100}, false},
        {{0, 100, 100, 0}, false},
        {{Least, 0, 100, 100}, false},
        {{0, 0, 100, Most}, false},
        {{Least, Least, Most, Most}, false},
        {{0, Least, 100, Least + 1}, false},
    };
    for (const auto& [rect, good] : Cases) {
        std::vector<LONG> numbers(Good.begin(), Good.begin() + 7);
        numbers.insert(numbers.end(), {rect.left, rect.top, rect.right, rect.bottom});
        EXPECT_EQ(good ? RecordOf(numbers) : Record(), Again(RecordOf(numbers))) << rect;
    }
}

TEST(MemoryRecord, TakesNoMoreThanItKnowsAndReopensNoWindowMinimisedOrHidden) {
    constexpr std::pair<LONG, LONG> Cases[] = {{0, 1}, {1, 1}, {2, 9}, {3, 3},  {4, 1},  {5, 1},  {6, 9},
                                               {7, 1}, {8, 1}, {9, 9}, {10, 1}, {11, 1}, {-1, 1}, {0x00030003, 1}};
    for (const auto& [stored, used] : Cases) {
        std::vector<LONG> numbers = Good;
        numbers[2] = stored;
        std::vector<LONG> damaged = numbers;
        damaged[0] = -1;  // its length says nothing
        damaged[1] = static_cast<LONG>(0xFFFFFFFA);
        numbers[2] = used;
        EXPECT_EQ(RecordOf(numbers), Again(RecordOf(damaged, 0xFF, 2))) << stored;
    }
}

}  // namespace
}  // namespace halyard::test
