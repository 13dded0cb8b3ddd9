#include "displays/display_set.h"

#include "support/rect_values.h"

#include <gtest/gtest.h>

namespace halyard::test {
namespace {

TEST(DisplaySet, TakesTenDisplaysInAnyOrder) {
    for (const bool descending : {false, true}) {
        DisplaySet set;
        // Handles that are no smaller when they are negative as signed numbers; bars at some of the edges.
        const auto place = [](unsigned index) {
            const auto left = static_cast<LONG>(index) * 800 - 800;
            return RECT{left + 30, index % 2 ? LONG{0} : LONG{-40}, left + 800, 600 - static_cast<LONG>(index)};
        };
        for (unsigned added = 0; added < 10; ++added) {
            const unsigned index = descending ? 9 - added : added;
            EXPECT_EQ(added < 9, set.Add({.handle = 0x7FFFFFFA + index, .workArea = place(index)}));
            EXPECT_EQ(0x7FFFFFFA + index, set.Numbered(added + 1)->handle) << "in order of adding";
        }
        EXPECT_FALSE(set.Add({.handle = 50, .workArea = {-5000, -5000, 9000, 9000}})) << "the eleventh";
        EXPECT_EQ((RECT{-770, -40, 7200, 600}), set.workBounds);
        for (unsigned index = 0; index < 10; ++index) {
            EXPECT_EQ(index, set.IndexOf(0x7FFFFFFA + index));
            EXPECT_EQ(place(index), set.displays[index].workArea);
            EXPECT_EQ((index + 1) % 10, set.NextOf(index));
        }
        EXPECT_EQ(DisplaySet::None, set.IndexOf(50));
        EXPECT_EQ(nullptr, set.Numbered(11));
    }
}

}  // namespace
}  // namespace halyard::test
