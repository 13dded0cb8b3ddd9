#include "behaviours/display_set.h"
#include "layouts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace halyard::test {
namespace {

std::vector<unsigned> HandlesOf(const DisplaySet& set) {
    std::vector<unsigned> handles;
    for (unsigned index = 0; index < set.count; ++index)
        handles.push_back(set.displays[index].handle);
    return handles;
}

TEST(DisplaySet, IsEmptyAtFirst) {
    const DisplaySet set;
    EXPECT_EQ(0u, set.count);
    EXPECT_EQ((RECT{}), set.workBounds);
    EXPECT_EQ(DisplaySet::None, set.IndexOf(0));
    EXPECT_EQ(DisplaySet::None, set.IndexOf(1));
}

TEST(DisplaySet, TakesTheDisplaysOfEachLayoutInAnyOrder) {
    std::mt19937 random{7};
    for (const Layout& layout : Layouts()) {
        SCOPED_TRACE(layout.name);
        const auto count = static_cast<unsigned>(layout.screens.size());
        std::vector<unsigned> order(count);
        for (unsigned index = 0; index < count; ++index)
            order[index] = index;
        for (int turn = 0; turn < 20; ++turn) {
            std::shuffle(order.begin(), order.end(), random);
            DisplaySet set;
            for (unsigned added = 0; added < count; ++added) {
                // Handles that are no smaller when they are negative as signed numbers.
                const unsigned handle = 0x7FFFFFF8 + order[added];
                EXPECT_EQ(added + 1 < 10, set.Add(handle, layout.screens[order[added]].workArea));
            }
            EXPECT_EQ(layout.WorkBounds(), set.workBounds);
            ASSERT_EQ(count, set.count);
            for (unsigned index = 0; index < count; ++index) {
                EXPECT_EQ(0x7FFFFFF8 + index, set.displays[index].handle);
                EXPECT_EQ(layout.screens[index].workArea, set.displays[index].workArea);
                EXPECT_EQ(index, set.IndexOf(0x7FFFFFF8 + index));
                EXPECT_EQ((index + 1) % count, set.NextOf(index));
            }
        }
    }
}

TEST(DisplaySet, LeavesOutTheEleventhDisplay) {
    DisplaySet set;
    for (unsigned number = 10; number > 0; --number)
        EXPECT_EQ(number > 1, set.Add(number * 100, {0, 0, 800, 600}));
    const std::vector<unsigned> ten = HandlesOf(set);
    EXPECT_FALSE(set.Add(50, {-5000, -5000, 9000, 9000}));
    EXPECT_EQ(ten, HandlesOf(set));
    EXPECT_EQ((RECT{0, 0, 800, 600}), set.workBounds);
    EXPECT_EQ(DisplaySet::None, set.IndexOf(50));
    EXPECT_EQ(0u, set.NextOf(9));
}

TEST(DisplaySet, BoundsOfDisplaysBesideTheOriginDoNotReachIt) {
    DisplaySet set;
    set.Add(2, {-2048, -900, -1024, -132});
    EXPECT_EQ((RECT{-2048, -900, -1024, -132}), set.workBounds);
    set.Add(1, {-1024, -900, -100, -132});
    EXPECT_EQ((RECT{-2048, -900, -100, -132}), set.workBounds);
}

}  // namespace
}  // namespace halyard::test
