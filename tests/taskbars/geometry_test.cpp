// Where secondary taskbars stand, how they are sized and dragged, and the ids of their buttons.
#include "mirror/mirror_place.h"
#include "support/rect_values.h"
#include "taskbars/bar_geometry.h"
#include "taskbars/button_ids.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace halyard {

namespace {

constexpr RECT Display = {-1024, -200, 0, 568};

BarShape Shape(DWORD edge, DWORD rows, bool locked = false) {
    return {.edge = edge, .rows = rows, .locked = locked};
}

TEST(BarRect, EveryEdgeLookRowAndLock) {
    const struct {
        DWORD edge, rows;
        bool locked;
        const TaskbarMetrics& metrics;
        RECT bar;
    } cases[] = {{BottomEdge, 1, false, ClassicMetrics, {-1024, 540, 0, 570}},
                 {BottomEdge, 3, true, ClassicMetrics, {-1024, 490, 0, 570}},
                 {BottomEdge, 0, false, ClassicMetrics, {-1024, 568, 0, 570}},
                 {BottomEdge, 2, true, ThemedMetrics, {-1024, 508, 0, 568}},
                 {TopEdge, 1, false, ClassicMetrics, {-1024, -202, 0, -172}},
                 {TopEdge, 1, false, ThemedMetrics, {-1024, -200, 0, -166}},
                 {LeftEdge, 0, false, ClassicMetrics, {-1024, -200, -926, 568}},
                 {RightEdge, 5, true, ThemedMetrics, {-98, -200, 0, 568}},
                 {4, 1, false, ClassicMetrics, Display}};
    for (const auto& row : cases)
        EXPECT_EQ(BarRect(Display, Shape(row.edge, row.rows, row.locked), row.metrics), row.bar)
            << row.edge << row.rows;
    const RECT hidden[] = {{-1024, -200, -1022, 568}, {-1024, -200, 0, -198}, {-2, -200, 0, 568}, {-1024, 566, 0, 568}};
    for (DWORD edge = LeftEdge; edge <= BottomEdge; ++edge)
        EXPECT_EQ(HiddenBarRect(Display, edge, ClassicMetrics), hidden[edge]);
}

TEST(ConstrainSize, ComesToRowsOrWidthsThatFit) {
    const struct {
        DWORD edge;
        bool autohide;
        const TaskbarMetrics& metrics;
        LONG proposed, size;
        DWORD rows;
    } cases[] = {{BottomEdge, false, ClassicMetrics, 8, 2, 0},   {BottomEdge, false, ClassicMetrics, 9, 30, 1},
                 {BottomEdge, true, ClassicMetrics, 8, 30, 1},   {BottomEdge, false, ClassicMetrics, 52, 30, 1},
                 {BottomEdge, false, ClassicMetrics, 53, 55, 2}, {BottomEdge, false, ClassicMetrics, 700, 380, 15},
                 {TopEdge, false, ThemedMetrics, 63, 34, 1},     {TopEdge, false, ThemedMetrics, 64, 64, 2},
                 {LeftEdge, true, ClassicMetrics, 8, 2, 1},      {LeftEdge, false, ClassicMetrics, 9, 34, 1},
                 {RightEdge, false, ThemedMetrics, 39, 40, 1},   {RightEdge, false, ThemedMetrics, 300, 300, 1},
                 {RightEdge, false, ThemedMetrics, 1000, 512, 1}};
    for (const auto& row : cases) {
        BarShape shape = Shape(row.edge, 1);
        const bool vertical = IsVertical(row.edge);
        const RECT bar = BarRect(Display, shape, ClassicMetrics);
        // The cursor took the bar somewhere, and drew it as much wider as is wanted.
        const LONG wider = row.proposed - (vertical ? WidthOf(bar) : HeightOf(bar));
        const LONG step = row.edge == LeftEdge || row.edge == TopEdge ? wider : -wider;
        const RECT proposed = DraggedSize(bar, row.edge, {70, -80}, {70 + step, -80 + step});
        const RECT size = ConstrainSize(proposed, Display, row.autohide, shape, row.metrics);
        EXPECT_EQ(vertical ? WidthOf(size) : HeightOf(size), row.size) << row.edge << ' ' << row.proposed;
        EXPECT_EQ(shape.rows, row.rows) << row.edge << ' ' << row.proposed;
        EXPECT_EQ(shape.verticalWidth, vertical ? row.size : 98);
        // The outer side stays.
        const LONG outer[] = {size.left - bar.left, size.top - bar.top, size.right - bar.right,
                              size.bottom - bar.bottom};
        EXPECT_EQ(outer[row.edge], 0) << row.edge << ' ' << row.proposed;
    }
}

TEST(SizingStrip, IsWhatIsLeftBesideTheRest) {
    constexpr RECT Bar = {100, 200, 160, 240};
    constexpr std::pair<DWORD, RECT> Rests[] = {{LeftEdge, {100, 200, 156, 240}},
                                                {TopEdge, {100, 200, 160, 236}},
                                                {RightEdge, {104, 200, 160, 240}},
                                                {BottomEdge, {100, 204, 160, 240}}};
    for (const auto& [edge, rest] : Rests) {
        EXPECT_EQ(LessSizingStrip(Bar, edge), rest) << edge;
        for (LONG x = Bar.left; x < Bar.right; ++x)
            for (LONG y = Bar.top; y < Bar.bottom; ++y) {
                const bool inRest = x >= rest.left && x < rest.right && y >= rest.top && y < rest.bottom;
                ASSERT_EQ(IsOnSizingStrip(Bar, edge, {x, y}), !inRest) << edge << " at " << x << "," << y;
            }
    }
}

TEST(EdgeAt, IsTheNearestEdgeByTheDiagonalsAndTheRightOneOnThem) {
    for (const RECT& display :
         {Display, RECT{0, 0, 1024, 768}, RECT{1024, 300, 2304, 1324}, RECT{-700, -2100, 380, -180}})
        for (LONG y = display.top; y <= display.bottom; y += 8) {
            for (LONG x = display.left; x <= display.right; x += 4) {
                const double across = (x - display.left) / double(WidthOf(display));
                const double down = (y - display.top) / double(HeightOf(display));
                const double distances[] = {across, down, 1 - across, 1 - down};
                const DWORD edge = EdgeAt(display, {x, y});
                ASSERT_LE(edge, BottomEdge);
                // On a diagonal two edges are as near.
                if (std::abs(across - down) > 1e-6 && std::abs(across + down - 1) > 1e-6) {
                    ASSERT_EQ(distances[edge], *std::min_element(distances, distances + 4)) << x << ',' << y;
                }
            }
        }
    const struct {
        POINT point;
        DWORD edge;
    } cases[] = {{{0, 768}, RightEdge},   {{512, 384}, RightEdge},   {{256, 576}, RightEdge}, {{768, 192}, RightEdge},
                 {{-900, 384}, LeftEdge}, {{512, 5000}, BottomEdge}, {{512, -5}, TopEdge},    {{9999, 380}, RightEdge}};
    for (const auto& row : cases)
        EXPECT_EQ(EdgeAt({0, 0, 1024, 768}, row.point), row.edge) << row.point;
}

TEST(SizeOfButtons, FillsTheBarWithinLimits) {
    const struct {
        BarShape shape;
        unsigned count;
        bool themed;
        LONG width;
    } cases[] = {{Shape(BottomEdge, 1), 1, false, 160}, {Shape(BottomEdge, 1), 7, false, 142},
                 {Shape(BottomEdge, 1), 60, false, 60}, {Shape(BottomEdge, 2), 13, false, 142},
                 {Shape(BottomEdge, 0), 3, false, 60},  {Shape(TopEdge, 1), 0, false, 60},
                 {Shape(TopEdge, 1), 60, true, 56},     {Shape(LeftEdge, 1), 9, false, 1016}};
    for (const auto& row : cases) {
        const TaskbarMetrics& metrics = row.themed ? ThemedMetrics : ClassicMetrics;
        EXPECT_EQ(SizeOfButtons(row.shape, row.count, 1020, row.themed, metrics).width, row.width) << row.count;
    }
}

TEST(ButtonIds, AreTheLowestFreeOnesButForTheMenus) {
    ButtonIds ids;
    for (WORD expected = 100; expected < 4196; ++expected)
        if (expected != MenuCommandId) {
            ASSERT_EQ(ids.Take(), expected);
        }
    for (const WORD id : {MenuCommandId, WORD{99}, WORD{4196}, NoButtonId})
        ids.GiveBack(id);
    EXPECT_EQ(ids.Take(), NoButtonId);
    ids.GiveBack(777);
    EXPECT_EQ(ids.Take(), 777);
}

TEST(MirrorRect, IsInTheMiddleWithTheSizeOfTheOriginal) {
    EXPECT_EQ(MirrorRect({300, 200, 701, 301}, {1024, 0, 2048, 768}), (RECT{1336, 334, 1737, 435}));
    EXPECT_EQ(MirrorRect({0, 0, 400, 100}, {-801, -600, 0, 1}), (RECT{-601, -350, -201, -250}));
}

}  // namespace

}  // namespace halyard
