#include "behaviours/geometry.h"
#include "support/rect_values.h"

#include <gtest/gtest.h>

namespace halyard::test {
namespace {

constexpr RECT First = {0, 0, 1024, 768};
constexpr RECT Second = {1024, 0, 2048, 768};
constexpr RECT BothSideBySide = {0, 0, 2048, 768};

TEST(Geometry, CentresWindows) {
    struct Case {
        const char* what;
        LONG width, height;
        RECT target;
        RECT bounds;
        POINT place;
    };
    constexpr Case Cases[] = {
        {"plain", 300, 200, First, First, {362, 284}},
        {"each half rounded down by itself", 301, 201, First, First, {362, 284}},
        {"taller than the target", 300, 900, First, First, {362, 0}},
        {"taller than a target in the middle", 300, 400, {300, 300, 700, 400}, First, {350, 300}},
        {"wider than the target", 600, 50, {300, 300, 700, 400}, First, {300, 325}},
        {"target left of the bounds, wide window", 600, 100, {-200, 100, 100, 300}, First, {0, 150}},
        {"bounds that begin right of the target", 100, 100, {10, 0, 110, 400}, {50, 0, 1024, 768}, {50, 150}},
        {"target below the bounds", 100, 200, {100, 500, 400, 900}, First, {200, 568}},
        {"the target's top wins over the bottom", 100, 400, {100, 600, 300, 760}, First, {150, 600}},
        {"the right edge isn't looked at", 300, 100, {900, 100, 1300, 300}, First, {950, 150}},
        {"nor the top edge", 100, 100, {100, -300, 300, -100}, First, {150, -250}},
    };
    for (const Case& test : Cases)
        for (const POINT old : {POINT{0, 0}, POINT{-3000, 500}, POINT{1700, -80}}) {
            const RECT window = {old.x, old.y, old.x + test.width, old.y + test.height};
            EXPECT_EQ(test.place, CentredOn(window, test.target, test.bounds)) << test.what << " from " << old;
        }
}

TEST(Geometry, DocksToInnerEdgesOnly) {
    constexpr RECT LeftAndFirst = {-1280, -200, 1024, 824};
    constexpr RECT Below = {0, 768, 1024, 1536};
    constexpr RECT Stack = {0, 0, 1024, 1536};
    constexpr RECT Quarter = {0, 0, 2048, 1536};
    constexpr RECT Row = {0, 0, 3072, 768};
    struct Case {
        const char* what;
        RECT display;
        RECT bounds;
        RECT before;
        RECT after;
    };
    constexpr Case Cases[] = {
        {"flush with an inner edge", First, BothSideBySide, {724, 0, 1024, 768}, {724, 0, 1024, 768}},
        {"right, inner", First, BothSideBySide, {800, 100, 1100, 300}, {724, 100, 1024, 300}},
        {"left, outer", First, BothSideBySide, {-50, 100, 250, 300}, {-50, 100, 250, 300}},
        {"above and below, outer", First, BothSideBySide, {100, -40, 400, 900}, {100, -40, 400, 900}},
        {"below, inner", First, Stack, {100, 700, 400, 800}, {100, 668, 400, 768}},
        {"above, inner", Below, Stack, {100, 700, 400, 900}, {100, 768, 400, 968}},
        {"both axes", First, Quarter, {900, 700, 1100, 800}, {824, 668, 1024, 768}},
        {"one axis inner, the other outer", First, Quarter, {900, -30, 1100, 70}, {824, -30, 1024, 70}},
        {"out of the top of a lower display", First, LeftAndFirst, {100, -50, 400, 100}, {100, 0, 400, 150}},
        {"no display behind, but the bounds go on",
         {1280, 0, 2304, 768},
         {0, 0, 2304, 1024},
         {1400, 700, 1700, 900},
         {1400, 568, 1700, 768}},
        {"wider than a display, out of its left edge",
         {1024, 0, 2048, 768},
         Row,
         {900, 0, 2400, 300},
         {1024, 0, 2524, 300}},
        {"wider than a display, flush with its left edge",
         {1024, 0, 2048, 768},
         Row,
         {1024, 0, 2148, 300},
         {924, 0, 2048, 300}},
        {"undone: would end right of the bounds", Second, BothSideBySide, {900, 0, 2100, 300}, {900, 0, 2100, 300}},
        {"undone on one axis only", Second, Quarter, {900, 700, 2100, 800}, {900, 668, 2100, 768}},
        {"a bar makes the edge an outer one", First, {60, 0, 2048, 768}, {-50, 100, 250, 300}, {-50, 100, 250, 300}},
        {"beside a bar of one display", First, {0, 0, 2048, 760}, {100, 700, 400, 790}, {100, 700, 400, 790}},
        {"undone: the other display is cut by a bar",
         First,
         {0, 0, 1024, 740},
         {100, -10, 400, 790},
         {100, -10, 400, 790}},
        {"undone: a window wider than what a bar leaves",
         First,
         {60, 0, 2048, 768},
         {100, 0, 1090, 300},
         {100, 0, 1090, 300}},
    };
    for (const Case& test : Cases) {
        RECT rect = test.before;
        const bool changed = DockRect(rect, test.display, test.bounds);
        EXPECT_EQ(test.after, rect) << test.what;
        EXPECT_EQ(!(test.before == test.after), changed) << test.what;
    }
}

TEST(Geometry, BringsWindowsWithinReach) {
    struct Case {
        const char* what;
        RECT before;
        RECT after;
    };
    constexpr RECT Area = {-1280, -200, 0, 824};
    constexpr Case Cases[] = {
        {"right of it", {5000, 0, 5300, 200}, {-300, 0, 0, 200}},
        {"left of it", {-5000, 0, -4700, 200}, {-1280, 0, -980, 200}},
        {"above", {-1000, -3000, -700, -2800}, {-1000, -200, -700, 0}},
        {"below", {-1000, 3000, -700, 3200}, {-1000, 624, -700, 824}},
        {"too wide: the left edge counts", {-3000, 0, -700, 200}, {-1280, 0, 1020, 200}},
        {"too high: the top edge counts", {-1000, 100, -700, 2000}, {-1000, -200, -700, 1700}},
        {"too large and far away", {9000, 9000, 19000, 19000}, {-1280, -200, 8720, 9800}},
    };
    for (const Case& test : Cases)
        EXPECT_EQ(test.after, BroughtInto(test.before, Area)) << test.what;
}

TEST(Geometry, MakesAnOpacityOfAPercentage) {
    struct Case {
        DWORD perCent;
        int alpha;
    };
    constexpr Case Cases[] = {{0, 0},     {1, 2},     {50, 127},  {75, 191},         {99, 252},
                              {100, 255}, {101, 255}, {356, 255}, {0x80000000, 255}, {0xFFFFFFFF, 255}};
    for (const Case& test : Cases)
        EXPECT_EQ(test.alpha, DragAlpha(test.perCent)) << test.perCent;
}

}  // namespace
}  // namespace halyard::test
