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
        const char* what;
        LONG width, height;
        RECT target, bounds;
        POINT place;
    } Cases[] = {
        {"each half rounded down by itself", 301, 201, First, First, {362, 284}},
        {"taller than a target in the middle", 300, 400, {300, 300, 700, 400}, First, {350, 300}},
        {"bounds that begin right of the target", 100, 100, {10, 0, 110, 400}, {50, 0, 1024, 768}, {50, 150}},
        {"the target's top wins over the bottom", 100, 400, {100, 600, 300, 760}, First, {150, 600}},
        {"right edge and top edge aren't looked at", 300, 100, {900, -300, 1300, -100}, First, {950, -250}},
    };
    for (const auto& test : Cases)
        EXPECT_EQ(test.place, CentredOn({-9, 7, test.width - 9, test.height + 7}, test.target, test.bounds))
            << test.what;
}

TEST(Geometry, DocksToInnerEdgesOnly) {
    constexpr struct {
        const char* what;
        RECT display, bounds, before, after;
    } Cases[] = {
        {"flush with an inner edge", First, Both, {724, 0, 1024, 768}, {724, 0, 1024, 768}},
        {"both axes", First, Quarter, {900, 700, 1100, 800}, {824, 668, 1024, 768}},
        {"wider than a display, out of its left edge",
         Second,
         {0, 0, 3072, 768},
         {900, 0, 2400, 9},
         {1024, 0, 2524, 9}},
        {"undone: would end right of the bounds", Second, Both, {900, 0, 2100, 300}, {900, 0, 2100, 300}},
        {"undone on one axis only", Second, Quarter, {900, 700, 2100, 800}, {900, 668, 2100, 768}},
        {"a bar makes the edge an outer one", First, {60, 0, 2048, 768}, {-50, 100, 250, 300}, {-50, 100, 250, 300}},
    };
    for (const auto& test : Cases) {
        RECT rect = test.before;
        EXPECT_EQ(!(test.before == test.after), DockRect(rect, test.display, test.bounds)) << test.what;
        EXPECT_EQ(test.after, rect) << test.what;
    }
}

TEST(Geometry, FollowsTheCursorWithTheSizeThatThePlatformGives) {
    constexpr RECT Maximised = {-4, -4, 1028, 772};
    EXPECT_EQ((RECT{16, 26, 1048, 802}), Followed(Maximised, {500, 10}, {520, 40}, Maximised)) << "its place is ours";
    EXPECT_EQ((RECT{16, 26, 716, 426}), Followed(Maximised, {500, 10}, {520, 40}, {9, 9, 709, 409}));
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
    EXPECT_EQ(DragAlpha(75), 191);
    EXPECT_EQ(DragAlpha(100), 255);
    EXPECT_EQ(DragAlpha(0xFFFFFFFF), 255);
}

}  // namespace
}  // namespace halyard::test
