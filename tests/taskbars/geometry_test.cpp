// Where secondary taskbars stand, how they are sized and dragged, and the ids of their buttons.
#include "mirror/mirror_place.h"
#include "support/rect_values.h"
#include "taskbars/bar_geometry.h"
#include "taskbars/button_ids.h"

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
        // The cursor took the bar somewhere, and drew its inner side until it had this size.
        const auto drawn = [&](LONG size) {
            const LONG wider = size - (vertical ? WidthOf(bar) : HeightOf(bar));
            const LONG step = row.edge == LeftEdge || row.edge == TopEdge ? wider : -wider;
            return DraggedSize(bar, row.edge, {70, -80}, {70 + step, -80 + step});
        };
        EXPECT_EQ(ConstrainSize(drawn(row.proposed), Display, row.autohide, shape, row.metrics), drawn(row.size));
        EXPECT_EQ(shape.rows, row.rows) << row.edge << ' ' << row.proposed;
        EXPECT_EQ(shape.verticalWidth, vertical ? row.size : 98);
    }
}

TEST(SizingStrip, IsWhatIsLeftBesideTheRest) {
    constexpr RECT Bar = {100, 200, 160, 240};
    const struct {
        RECT rest;
        POINT onStrip, beside;
    } cases[] = {{{100, 200, 156, 240}, {156, 220}, {155, 220}},
                 {{100, 200, 160, 236}, {130, 236}, {130, 235}},
                 {{104, 200, 160, 240}, {103, 220}, {104, 220}},
                 {{100, 204, 160, 240}, {130, 203}, {130, 204}}};
    for (DWORD edge = LeftEdge; edge <= BottomEdge; ++edge) {
        EXPECT_EQ(LessSizingStrip(Bar, edge), cases[edge].rest) << edge;
        EXPECT_TRUE(IsOnSizingStrip(Bar, edge, cases[edge].onStrip)) << edge;
        EXPECT_FALSE(IsOnSizingStrip(Bar, edge, cases[edge].beside)) << edge;
    }
}

TEST(EdgeAt, IsTheNearestEdgeByTheDiagonalsAndTheRightOneOnThem) {
    // On a diagonal, and one pixel beside it; outside of the display.
    const struct {
        POINT point;
        DWORD edge;
    } cases[] = {{{400, 300}, RightEdge}, {{400, 299}, TopEdge},     {{400, 301}, LeftEdge},  {{400, 468}, RightEdge},
                 {{400, 467}, LeftEdge},  {{400, 469}, BottomEdge},  {{768, 192}, RightEdge}, {{768, 191}, TopEdge},
                 {{768, 576}, RightEdge}, {{768, 577}, BottomEdge},  {{0, 768}, RightEdge},   {{-900, 384}, LeftEdge},
                 {{512, -5}, TopEdge},    {{512, 5000}, BottomEdge}, {{512, 384}, RightEdge}, {{9999, 380}, RightEdge}};
    for (const auto& [point, edge] : cases)
        EXPECT_EQ(EdgeAt({-700, -2100, 324, -1332}, {point.x - 700, point.y - 2100}), edge) << point;
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
