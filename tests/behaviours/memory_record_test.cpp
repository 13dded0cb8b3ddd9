#include "behaviours/memory_record.h"
#include "rect_values.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <random>
#include <vector>

namespace halyard::test {
namespace {

constexpr LONG Wildest[] = {std::numeric_limits<LONG>::min(), std::numeric_limits<LONG>::max()};

using Record = std::vector<BYTE>;

void Put(Record& record, std::size_t offset, DWORD value) {
    for (std::size_t index = 0; index < 4; ++index)
        record[offset + index] = static_cast<BYTE>(value >> 8 * index);
}

void PutRect(Record& record, const RECT& rect) {
    Put(record, 30, static_cast<DWORD>(rect.left));
    Put(record, 34, static_cast<DWORD>(rect.top));
    Put(record, 38, static_cast<DWORD>(rect.right));
    Put(record, 42, static_cast<DWORD>(rect.bottom));
}

// A good record, by the offsets of the stored form.
Record GoodRecord() {
    Record record(46);
    record[0] = 1;
    record[1] = 1;
    Put(record, 2, 44);
    Put(record, 6, 2);
    Put(record, 10, 3);
    Put(record, 14, static_cast<DWORD>(-32000));
    Put(record, 18, static_cast<DWORD>(-31999));
    Put(record, 22, static_cast<DWORD>(-4));
    Put(record, 26, static_cast<DWORD>(-3));
    PutRect(record, {-1200, -77, 300, 0x0304});
    return record;
}

WindowMemory GoodMemory() {
    WindowMemory memory;
    memory.maximisedAcross = true;
    memory.topmost = true;
    memory.flags = 2;
    memory.showCommand = 3;
    memory.minPosition = {-32000, -31999};
    memory.maxPosition = {-4, -3};
    memory.normalRect = {-1200, -77, 300, 0x0304};
    return memory;
}

void ExpectSame(const WindowMemory& expected, const WindowMemory& seen) {
    EXPECT_EQ(expected.maximisedAcross, seen.maximisedAcross);
    EXPECT_EQ(expected.topmost, seen.topmost);
    EXPECT_EQ(expected.flags, seen.flags);
    EXPECT_EQ(expected.showCommand, seen.showCommand);
    EXPECT_EQ(expected.minPosition, seen.minPosition);
    EXPECT_EQ(expected.maxPosition, seen.maxPosition);
    EXPECT_EQ(expected.normalRect, seen.normalRect);
}

TEST(MemoryRecord, HasItsFieldsAtTheirOffsets) {
    BYTE bytes[MemoryRecordSize];
    EncodeWindowMemory(GoodMemory(), bytes);
    EXPECT_EQ(GoodRecord(), Record(bytes, bytes + sizeof(bytes)));
    WindowMemory memory;
    const Record record = GoodRecord();
    ASSERT_TRUE(DecodeWindowMemory(record.data(), record.size(), memory));
    ExpectSame(GoodMemory(), memory);
}

TEST(MemoryRecord, OfAnotherSizeIsNone) {
    Record longer = GoodRecord();
    longer.resize(200, 1);
    for (const std::size_t size : {0u, 1u, 2u, 44u, 45u, 47u, 92u, 200u}) {
        // Copied to a block of just this size, so that a read beside it shows.
        const Record exact(longer.begin(), longer.begin() + static_cast<std::ptrdiff_t>(size));
        WindowMemory memory = GoodMemory();
        EXPECT_FALSE(DecodeWindowMemory(exact.data(), exact.size(), memory)) << size;
        ExpectSame(GoodMemory(), memory);
    }
}

TEST(MemoryRecord, WithARectangleThatNoWindowHasIsNone) {
    constexpr LONG Far = 0x100000;
    struct Case {
        RECT rect;
        bool good;
    };
    constexpr Case Cases[] = {
        {{0, 0, 1, 1}, true},
        {{-30000, -30000, 30000, 30000}, true},
        {{1 - Far, 1 - Far, Far - 1, Far - 1}, true},
        {{-Far, 0, 100, 100}, false},
        {{0, 0, 100, Far}, false},
        {{0, 0, 0, 100}, false},
        {{0, 0, 100, 0}, false},
        {{100, 0, 0, 100}, false},
        {{0, 100, 100, 0}, false},
        {{Wildest[0], 0, 100, 100}, false},
        {{0, Wildest[0], 100, 100}, false},
        {{0, 0, Wildest[1], 100}, false},
        {{0, 0, 100, Wildest[1]}, false},
        {{Wildest[0], Wildest[0], Wildest[1], Wildest[1]}, false},
        {{Wildest[1] - 1, 0, Wildest[1], 100}, false},
        {{0, Wildest[0], 100, Wildest[0] + 1}, false},
    };
    for (const Case& test : Cases) {
        Record record = GoodRecord();
        PutRect(record, test.rect);
        WindowMemory memory = GoodMemory();
        EXPECT_EQ(test.good, DecodeWindowMemory(record.data(), record.size(), memory)) << test.rect;
        WindowMemory expected = GoodMemory();
        if (test.good) expected.normalRect = test.rect;
        ExpectSame(expected, memory);
    }
}

TEST(MemoryRecord, ReopensNoWindowMinimisedOrHidden) {
    struct Case {
        DWORD stored;
        DWORD used;
    };
    constexpr Case Cases[] = {{0, 1}, {1, 1}, {2, 9}, {3, 3},  {4, 1},  {5, 1},          {6, 9},
                              {7, 1}, {8, 1}, {9, 9}, {10, 1}, {11, 1}, {0xFFFFFFFF, 1}, {0x00030003, 1}};
    for (const Case& test : Cases) {
        Record record = GoodRecord();
        Put(record, 10, test.stored);
        WindowMemory memory;
        ASSERT_TRUE(DecodeWindowMemory(record.data(), record.size(), memory));
        EXPECT_EQ(test.used, memory.showCommand) << test.stored;
    }
}

TEST(MemoryRecord, TakesNoMoreThanItKnows) {
    Record record = GoodRecord();
    record[0] = 0xFF;
    record[1] = 2;
    Put(record, 2, 0xFFFFFFFF);  // its length says nothing
    Put(record, 6, 0xFFFFFFFD);
    WindowMemory memory;
    ASSERT_TRUE(DecodeWindowMemory(record.data(), record.size(), memory));
    EXPECT_TRUE(memory.maximisedAcross);
    EXPECT_TRUE(memory.topmost);
    EXPECT_EQ(5u, memory.flags);
    record[0] = record[1] = 0;
    ASSERT_TRUE(DecodeWindowMemory(record.data(), record.size(), memory));
    EXPECT_FALSE(memory.maximisedAcross);
    EXPECT_FALSE(memory.topmost);
}

TEST(MemoryRecord, GoesRound) {
    std::mt19937 random{46};
    const auto ordinary = [&] { return static_cast<LONG>(random() % 60000) - 30000; };
    for (int turn = 0; turn < 2000; ++turn) {
        WindowMemory memory;
        memory.maximisedAcross = random() % 2;
        memory.topmost = random() % 2;
        memory.flags = random() % 8;
        constexpr DWORD Lasting[] = {1, 3, 9};
        memory.showCommand = Lasting[random() % 3];
        memory.minPosition = {static_cast<LONG>(random()), ordinary()};
        memory.maxPosition = {ordinary(), static_cast<LONG>(random())};
        memory.normalRect = {ordinary(), ordinary(), 30001, 30002};
        BYTE bytes[MemoryRecordSize];
        EncodeWindowMemory(memory, bytes);
        WindowMemory back;
        ASSERT_TRUE(DecodeWindowMemory(bytes, sizeof(bytes), back));
        ExpectSame(memory, back);
    }
}

}  // namespace
}  // namespace halyard::test
