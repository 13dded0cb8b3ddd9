// Where secondary taskbars stand, how they are sized and dragged, and the ids of their buttons.
#include "common/rectangles.h"
#include "mirror/mirror_place.h"
#include "taskbars/bar_geometry.h"
#include "taskbars/button_ids.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>

static void PrintTo(const RECT& rect, std::ostream* out) {
    *out << rect.left << ',' << rect.top << ',' << rect.right << ',' << rect.bottom;
}
static bool operator==(const RECT& a, const RECT& b) {
    return halyard::SameRect(a, b);
}

namespace halyard {

namespace {

constexpr RECT Display = {-1024, -200, 0, 568};
constexpr RECT Displays[] = {{0, 0, 1024, 768}, Display, {1024, 300, 2304, 1324}, {-700, -2100, 380, -180}};
constexpr DWORD AllEdges[] = {LeftEdge, TopEdge, RightEdge, BottomEdge};

BarShape Shape(DWORD edge, DWORD rows, bool locked) {
    return {.edge = edge, .rows = rows, .locked = locked};
}

TEST(BarRect, EveryEdgeLookRowAndLock) {
    const struct {
        BarShape shape;
        const TaskbarMetrics& metrics;
        RECT bar;
    } cases[] = {
        {Shape(BottomEdge, 1, false), ClassicMetrics, {-1024, 540, 0, 570}},
        {Shape(BottomEdge, 3, true), ClassicMetrics, {-1024, 490, 0, 570}},
        {Shape(BottomEdge, 0, false), ClassicMetrics, {-1024, 568, 0, 570}},
        {Shape(BottomEdge, 1, false), ThemedMetrics, {-1024, 534, 0, 568}},
        {Shape(BottomEdge, 2, true), ThemedMetrics, {-1024, 508, 0, 568}},
        {Shape(TopEdge, 1, false), ClassicMetrics, {-1024, -202, 0, -172}},
        {Shape(TopEdge, 1, false), ThemedMetrics, {-1024, -200, 0, -166}},
        {Shape(LeftEdge, 0, false), ClassicMetrics, {-1024, -200, -926, 568}},
        {Shape(RightEdge, 5, true), ThemedMetrics, {-98, -200, 0, 568}},
        {Shape(4, 1, false), ClassicMetrics, Display},
        {Shape(0xFFFFFFFF, 1, false), ThemedMetrics, Display},
    };
    for (const auto& row : cases)
        EXPECT_EQ(BarRect(Display, row.shape, row.metrics), row.bar) << row.shape.edge << ' ' << row.shape.rows;
    EXPECT_EQ(HiddenBarRect(Display, LeftEdge, ClassicMetrics), (RECT{-1024, -200, -1022, 568}));
    EXPECT_EQ(HiddenBarRect(Display, TopEdge, ClassicMetrics), (RECT{-1024, -200, 0, -198}));
    EXPECT_EQ(HiddenBarRect(Display, RightEdge, ClassicMetrics), (RECT{-2, -200, 0, 568}));
    EXPECT_EQ(HiddenBarRect(Display, BottomEdge, ClassicMetrics), (RECT{-1024, 566, 0, 568}));
}

TEST(SizingStrip, IsTheInnerSideAlone) {
    for (const DWORD edge : AllEdges) {
        const RECT bar = BarRect(Display, Shape(edge, 2, false), ClassicMetrics);
        const RECT rest = LessSizingStrip(bar, edge);
        const POINT middle = {(bar.left + bar.right) / 2, (bar.top + bar.bottom) / 2};
        EXPECT_EQ(WidthOf(bar) - WidthOf(rest) + HeightOf(bar) - HeightOf(rest), SizingStrip) << edge;
        for (LONG x = bar.left; x < bar.right; ++x)
            EXPECT_EQ(IsOnSizingStrip(bar, edge, {x, middle.y}), x < rest.left || x >= rest.right) << edge << ' ' << x;
        for (LONG y = bar.top; y < bar.bottom; ++y)
            EXPECT_EQ(IsOnSizingStrip(bar, edge, {middle.x, y}), y < rest.top || y >= rest.bottom) << edge << ' ' << y;
    }
    EXPECT_FALSE(IsOnSizingStrip(Display, 7, {-1024, -200}));
    // HTRIGHT, HTBOTTOM, HTLEFT, HTTOP; and the parts of the theme.
    const struct { int code, background, sizing; } edges[] = {{11, 4, 8}, {15, 3, 7}, {10, 2, 6}, {12, 1, 5}};
    for (const DWORD edge : AllEdges) {
        EXPECT_EQ(SizingCode(edge), edges[edge].code);
        EXPECT_EQ(BackgroundPart(edge), edges[edge].background);
        EXPECT_EQ(SizingPart(edge), edges[edge].sizing);
    }
}

TEST(ConstrainSize, ComesToRowsOrWidthsThatFit) {
    const struct {
        DWORD edge;
        bool autohide;
        const TaskbarMetrics& metrics;
        LONG proposed, size;
        DWORD rows;
    } cases[] = {
        {BottomEdge, false, ClassicMetrics, 8, 2, 0},    {BottomEdge, false, ClassicMetrics, 9, 30, 1},
        {BottomEdge, true, ClassicMetrics, 8, 30, 1},    {BottomEdge, false, ClassicMetrics, 52, 30, 1},
        {BottomEdge, false, ClassicMetrics, 53, 55, 2},  {BottomEdge, false, ClassicMetrics, 700, 380, 15},
        {TopEdge, false, ThemedMetrics, 63, 34, 1},      {TopEdge, false, ThemedMetrics, 64, 64, 2},
        {LeftEdge, true, ClassicMetrics, 8, 2, 1},       {LeftEdge, false, ClassicMetrics, 9, 34, 1},
        {RightEdge, false, ThemedMetrics, 39, 40, 1},    {RightEdge, false, ThemedMetrics, 300, 300, 1},
        {RightEdge, false, ThemedMetrics, 1000, 512, 1},
    };
    for (const auto& row : cases) {
        BarShape shape = Shape(row.edge, 1, false);
        RECT proposed = Display;
        if (row.edge == LeftEdge) proposed.right = proposed.left + row.proposed;
        if (row.edge == RightEdge) proposed.left = proposed.right - row.proposed;
        if (row.edge == TopEdge) proposed.bottom = proposed.top + row.proposed;
        if (row.edge == BottomEdge) proposed.top = proposed.bottom - row.proposed;
        const RECT size = ConstrainSize(proposed, Display, row.autohide, shape, row.metrics);
        const bool vertical = IsVertical(row.edge);
        EXPECT_EQ(vertical ? WidthOf(size) : HeightOf(size), row.size) << row.edge << ' ' << row.proposed;
        EXPECT_EQ(shape.rows, row.rows) << row.edge << ' ' << row.proposed;
        EXPECT_EQ(shape.verticalWidth, vertical ? row.size : 98);
        // The outer side stays where the display ends.
        EXPECT_EQ(row.edge == LeftEdge ? size.left : Display.left, Display.left);
        EXPECT_EQ(row.edge == BottomEdge ? size.bottom : Display.bottom, Display.bottom);
    }
}

TEST(EdgeAt, IsTheEdgeOfTheTriangleUnderTheCursor) {
    for (const RECT& display : Displays) {
        const double width = WidthOf(display), height = HeightOf(display);
        unsigned seen[4] = {};
        for (LONG y = display.top; y <= display.bottom; y += 7) {
            for (LONG x = display.left; x <= display.right; x += 5) {
                const double across = (x - display.left) / width, down = (y - display.top) / height;
                const double distances[] = {across, down, 1 - across, 1 - down};
                const DWORD edge = EdgeAt(display, {x, y});
                ASSERT_LE(edge, BottomEdge);
                ++seen[edge];
                // On a diagonal two edges are as near.
                if (std::abs(across - down) < 1e-6 || std::abs(across + down - 1) < 1e-6) continue;
                ASSERT_EQ(distances[edge], *std::min_element(distances, distances + 4))
                    << edge << " at " << x << ',' << y;
            }
        }
        for (const DWORD edge : AllEdges)
            EXPECT_GT(seen[edge], 1000U) << edge;
    }
}

TEST(EdgeAt, CornersDiagonalsAndOutside) {
    const RECT& display = Displays[0];
    const struct {
        POINT point;
        DWORD edge;
    } cases[] = {
        {{0, 768}, RightEdge},     {{1024, 768}, RightEdge}, {{512, 384}, RightEdge},
        {{256, 576}, RightEdge},   {{768, 192}, RightEdge},  {{-900, 384}, LeftEdge},
        {{512, 5000}, BottomEdge}, {{512, -5}, TopEdge},     {{9999, 380}, RightEdge},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(EdgeAt(display, row.point), row.edge) << row.point.x << ',' << row.point.y;
        // The same wherever the display lies.
        const POINT moved = {row.point.x - 5000, row.point.y - 3000};
        EXPECT_EQ(EdgeAt(Shifted(display, -5000, -3000), moved), row.edge) << row.point.x << ',' << row.point.y;
    }
}

TEST(SizeOfButtons, FillsTheBarWithinLimits) {
    const struct {
        BarShape shape;
        unsigned count;
        bool themed;
        LONG width;
    } cases[] = {
        {Shape(BottomEdge, 1, false), 1, false, 160}, {Shape(BottomEdge, 1, false), 7, false, 142},
        {Shape(BottomEdge, 1, false), 60, false, 60}, {Shape(BottomEdge, 2, false), 13, false, 142},
        {Shape(BottomEdge, 0, false), 3, false, 60},  {Shape(TopEdge, 1, false), 0, false, 60},
        {Shape(TopEdge, 1, false), 1, true, 156},     {Shape(TopEdge, 1, false), 60, true, 56},
        {Shape(LeftEdge, 1, false), 9, false, 1016},
    };
    for (const auto& row : cases) {
        const TaskbarMetrics& metrics = row.themed ? ThemedMetrics : ClassicMetrics;
        EXPECT_EQ(SizeOfButtons(row.shape, row.count, 1020, row.themed, metrics).width, row.width) << row.count;
    }
}

TEST(ButtonIds, AreTheLowestFreeOnesButForTheMenus) {
    ButtonIds ids;
    for (WORD expected = 100; expected < MenuCommandId; ++expected)
        ASSERT_EQ(ids.Take(), expected);
    EXPECT_EQ(ids.Take(), MenuCommandId + 1);
    ids.GiveBack(MenuCommandId);
    ids.GiveBack(777);
    ids.GiveBack(99);
    ids.GiveBack(4196);
    EXPECT_EQ(ids.Take(), 777);
    WORD last = 0;
    for (WORD id = ids.Take(); id != NoButtonId; id = ids.Take())
        last = id;
    EXPECT_EQ(last, 4195);
    ids.GiveBack(NoButtonId);
    EXPECT_EQ(ids.Take(), NoButtonId);
}

TEST(MirrorRect, IsInTheMiddleWithTheSizeOfTheOriginal) {
    EXPECT_EQ(MirrorRect({300, 200, 701, 301}, {1024, 0, 2048, 768}), (RECT{1336, 334, 1737, 435}));
    EXPECT_EQ(MirrorRect({0, 0, 400, 100}, {-801, -600, 0, 1}), (RECT{-601, -350, -201, -250}));
}

}  // namespace

}  // namespace halyard
