#include "displays/display_set.h"
#include "support/layouts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace halyard::test {
namespace {

TEST(DisplaySet, TakesTheDisplaysOfEachLayoutInAnyOrder) {
    std::mt19937 random{7};
    for (const Layout& layout : Layouts()) {
        SCOPED_TRACE(layout.name);
        const auto count = static_cast<unsigned>(layout.screens.size());
        std::vector<unsigned> order;
        for (unsigned index = 0; index < count; ++index)
            order.push_back(index);
        for (int turn = 0; turn < 20; ++turn) {
            std::shuffle(order.begin(), order.end(), random);
            DisplaySet set;
            // Handles that are no smaller when they are negative as signed numbers.
            for (unsigned added = 0; added < count; ++added)
                EXPECT_EQ(added < 9, set.Add(0x7FFFFFF8 + order[added], layout.screens[order[added]].workArea));
            EXPECT_TRUE(count < 10 || !set.Add(50, {-5000, -5000, 9000, 9000})) << "the eleventh";
            EXPECT_EQ(layout.WorkBounds(), set.workBounds);
            ASSERT_EQ(count, set.count);
            for (unsigned index = 0; index < count; ++index) {
                EXPECT_EQ(index, set.IndexOf(0x7FFFFFF8 + index));
                EXPECT_EQ(layout.screens[index].workArea, set.displays[index].workArea);
                EXPECT_EQ((index + 1) % count, set.NextOf(index));
            }
            EXPECT_EQ(DisplaySet::None, set.IndexOf(50));
        }
    }
}

}  // namespace
}  // namespace halyard::test
