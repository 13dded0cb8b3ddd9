#include "displays/display_set.h"

#include "support/rect_values.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace halyard::test {
namespace {

TEST(DisplaySet, TakesTenDisplaysInAnyOrder) {
    for (const unsigned count : {1u, 2u, 3u, 10u}) {
        std::vector<unsigned> order;
        for (unsigned index = 0; index < count; ++index)
            order.push_back(index);
        do {
            DisplaySet set;
            // Handles that are no smaller when they are negative as signed numbers; bars at some of the edges.
            const auto place = [](unsigned index) {
                const auto left = static_cast<LONG>(index) * 800 - 800;
                return RECT{left + 30, index % 2 ? LONG{0} : LONG{-40}, left + 800, 600 - static_cast<LONG>(index)};
            };
            for (const unsigned index : order)
                set.Add({.handle = 0x7FFFFFF8 + index, .workArea = place(index)});
            EXPECT_TRUE(count < 10 || !set.Add({.handle = 50, .workArea = {-5000, -5000, 9000, 9000}}))
                << "the eleventh";
            EXPECT_EQ((RECT{-770, -40, static_cast<LONG>(count) * 800 - 800, 600}), set.workBounds);
            ASSERT_EQ(count, set.count);
            for (unsigned index = 0; index < count; ++index) {
                EXPECT_EQ(index, set.IndexOf(0x7FFFFFF8 + index));
                EXPECT_EQ(place(index), set.displays[index].workArea);
                EXPECT_EQ((index + 1) % count, set.NextOf(index));
            }
            EXPECT_EQ(DisplaySet::None, set.IndexOf(50));
            for (unsigned number = 1; number <= count; ++number)
                EXPECT_EQ(0x7FFFFFF8 + order[number - 1], set.Numbered(number)->handle) << "in order of adding";
            EXPECT_EQ(nullptr, set.Numbered(count + 1));
        } while (count < 10 && std::next_permutation(order.begin(), order.end()));
    }
}

}  // namespace
}  // namespace halyard::test
