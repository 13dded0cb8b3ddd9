#include "behaviours/geometry.h"
#include "support/rect_values.h"

#include <gtest/gtest.h>

namespace halyard::test {
namespace {

constexpr RECT First = {0, 0, 1024, 768};
constexpr RECT Second = {1024, 0, 2048, 768};
constexpr RECT Both = {0, 0, 2048, 768};
constexpr RECT Quarter = {0, 0, 2048, 1536};

TEST(Geometry, CentresWindows) {
    constexpr struct {
        LONG width, height;
        RECT target, bounds;
        POINT place;
    } Cases[] = {
        {301, 201, First, First, {362, 284}},  // each half rounded down by itself
        {100, 100, {10, 0, 110, 400}, {50, 0, 1024, 768}, {50, 150}},
        {100, 400, {100, 600, 300, 760}, First, {150, 600}},      // the target's top wins over the bottom
        {300, 100, {900, -300, 1300, -100}, First, {950, -250}},  // right edge and top edge aren't looked at
    };
    for (const auto& [width, height, target, bounds, place] : Cases)
        EXPECT_EQ(place, CentredOn({-9, 7, width - 9, height + 7}, target, bounds)) << target;
}

TEST(Geometry, DocksToInnerEdgesOnly) {
    constexpr struct {
        RECT display, bounds, before, after;
    } Cases[] = {
        {First, Both, {724, 0, 1024, 768}, {724, 0, 1024, 768}},  // flush with an inner edge
        {First, Quarter, {900, 700, 1100, 800}, {824, 668, 1024, 768}},
        {Second, {0, 0, 3072, 768}, {900, 0, 2400, 9}, {1024, 0, 2524, 9}},       // wider than a display
        {Second, Quarter, {900, 700, 2100, 800}, {900, 668, 2100, 768}},          // would end right of the bounds
        {First, {60, 0, 2048, 768}, {-50, 100, 250, 300}, {-50, 100, 250, 300}},  // a bar makes the edge an outer one
    };
    for (const auto& [display, bounds, before, after] : Cases) {
        RECT rect = before;
        EXPECT_EQ(!(before == after), DockRect(rect, display, bounds)) << before;
        EXPECT_EQ(after, rect);
    }
}

TEST(Geometry, FollowsTheCursorWithTheSizeThatThePlatformGives) {
    constexpr RECT Maximised = {-4, -4, 1028, 772};
    EXPECT_EQ((RECT{16, 26, 1048, 802}), Followed(Maximised, {500, 10}, {520, 40}, Maximised));
    EXPECT_EQ((RECT{320, 26, 720, 426}), Followed(Maximised, {512, 10}, {520, 40}, {9, 9, 409, 409}))
        << "the cursor stays in the middle of the caption";
    EXPECT_EQ((RECT{10, 20, 510, 420}), Followed({0, 0, 300, 200}, {50, 5}, {60, 25}, {0, 0, 500, 400}));
}

TEST(Geometry, BringsWindowsWithinReach) {
    constexpr std::pair<RECT, RECT> Cases[] = {{{5000, -3000, 5300, -2800}, {-300, -200, 0, 0}},
                                               {{-5000, 3000, -4700, 3200}, {-1280, 624, -980, 824}},
                                               {{9000, 9000, 19000, 19000}, {-1280, -200, 8720, 9800}}};
    for (const auto& [before, after] : Cases)
        EXPECT_EQ(after, BroughtInto(before, {-1280, -200, 0, 824}));
}

TEST(Geometry, MakesAnOpacityOfAPercentage) {
    EXPECT_EQ(DragAlpha(100), 255);
    EXPECT_EQ(DragAlpha(0xFFFFFFFF), 255);
}

}  // namespace
}  // namespace halyard::test
