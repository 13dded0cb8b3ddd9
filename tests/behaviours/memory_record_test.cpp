#include "behaviours/memory_record.h"
#include "support/rect_values.h"

#include <gtest/gtest.h>

#include <vector>

namespace halyard::test {
namespace {

using Record = std::vector<BYTE>;

// The numbers after the two switches, each in four bytes.
Record RecordOf(LONG show, const RECT& rect, LONG flags = 2) {
    Record record = {1, 1};
    const LONG numbers[] = {44, flags, show, -32000, -31999, -4, -3, rect.left, rect.top, rect.right, rect.bottom};
    for (const LONG number : numbers)
        for (int shift = 0; shift < 32; shift += 8)
            record.push_back(static_cast<BYTE>(static_cast<DWORD>(number) >> shift));
    return record;
}

// The record as it is written again, empty for one that isn't taken.
Record Again(const Record& record) {
    WindowMemory memory;
    if (!DecodeWindowMemory(record.data(), record.size(), memory)) return {};
    BYTE written[MemoryRecordSize];
    EncodeWindowMemory(memory, written);
    return {written, written + sizeof(written)};
}

TEST(MemoryRecord, IsTakenWhereAWindowCanHaveIt) {
    constexpr LONG Far = 0x100000, Most = 0x7FFFFFFF;
    constexpr RECT Good = {-1200, -77, 300, 0x0304};
    for (const RECT& rect : {RECT{0, 0, 1, 1}, RECT{1 - Far, 1 - Far, Far - 1, Far - 1}})
        EXPECT_EQ(RecordOf(3, rect), Again(RecordOf(3, rect))) << rect;
    for (const RECT& rect : {RECT{-Far, 0, 9, 9}, RECT{0, 0, 9, Far}, RECT{0, 0, 0, 9}, RECT{0, 9, 9, 0},
                             RECT{-Most - 1, 0, 9, 9}, RECT{0, -Most - 1, Most, -Most}})
        EXPECT_EQ(Record(), Again(RecordOf(3, rect))) << rect;
    for (const std::size_t size : {0u, 45u, 47u}) {
        // A block of just this size, so that a read beside it shows.
        Record exact = RecordOf(3, Good);
        exact.resize(size, 1);
        exact.shrink_to_fit();
        EXPECT_EQ(Record(), Again(exact)) << size;
    }
    // No window reopens minimised or hidden, and unknown flags and switches mean nothing.
    constexpr std::pair<LONG, LONG> Shows[] = {{0, 1}, {2, 9}, {3, 3}, {6, 9}, {7, 1}, {-1, 1}};
    for (const auto& [stored, used] : Shows) {
        Record damaged = RecordOf(stored, Good, -1);
        damaged[0] = 200;
        EXPECT_EQ(RecordOf(used, Good, 7), Again(damaged)) << stored;
    }
}

}  // namespace
}  // namespace halyard::test
