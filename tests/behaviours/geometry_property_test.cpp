// What holds for any window on any desktop, tried with many of them in a fixed sequence.
#include "behaviours/geometry.h"
#include "support/layouts.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace halyard::test {
namespace {

constexpr unsigned Tries = 4000;  // for each layout

class Dice {
public:
    LONG Between(LONG low, LONG high) { return std::uniform_int_distribution<LONG>(low, high)(random); }
    // A window with its top left corner on the desktop or somewhat beside it.
    RECT Window(const RECT& desktop, LONG widest, LONG highest) {
        const LONG left = Between(desktop.left - 400, desktop.right + 300);
        const LONG top = Between(desktop.top - 400, desktop.bottom + 300);
        return {left, top, left + Between(1, widest), top + Between(1, highest)};
    }

private:
    std::mt19937 random{20041};
};

RECT Grown(const RECT& rect, LONG by) {
    return {rect.left - by, rect.top - by, rect.right + by, rect.bottom + by};
}

bool Contains(const RECT& outer, const RECT& inner) {
    return UnionOf(outer, inner) == outer;
}

bool FitsEverywhere(const Layout& layout, const RECT& window) {
    for (const Screen& screen : layout.screens)
        if (WidthOf(window) > WidthOf(screen.whole) || HeightOf(window) > HeightOf(screen.whole)) return false;
    return true;
}

void TryOnEachLayout(const std::function<void(const Layout&, const RECT& window, Dice&)>& property) {
    Dice dice;
    for (const Layout& layout : Layouts()) {
        SCOPED_TRACE(layout.name);
        for (unsigned turn = 0; turn < Tries && !testing::Test::HasFailure(); ++turn) {
            const RECT window = dice.Window(layout.WorkBounds(), 1600, 1300);
            SCOPED_TRACE(testing::Message() << window);
            property(layout, window, dice);
        }
    }
}

struct Span {
    LONG low;
    LONG high;
};

// An axis on which a window was moved.
void ExpectDocked(Span window, Span display, Span bounds) {
    SCOPED_TRACE(testing::Message() << window.low << " to " << window.high);
    EXPECT_TRUE(window.low == display.low || window.high == display.high) << "flush with its display";
    EXPECT_TRUE(window.low >= bounds.low && window.high <= bounds.high) << "inside the bounds";
    const bool fits = window.high - window.low <= display.high - display.low;
    EXPECT_TRUE(!fits || (window.low >= display.low && window.high <= display.high)) << "on one display";
}

TEST(DockProperties, AChangedAxisLiesOnOneDisplayAndInsideTheBounds) {
    TryOnEachLayout([](const Layout& layout, const RECT& window, Dice&) {
        const RECT whole = layout.Nearest(window).whole;
        const RECT bounds = layout.WorkBounds();
        RECT docked = window;
        const bool changed = DockRect(docked, whole, bounds);
        EXPECT_EQ(changed, !(docked == window));
        EXPECT_EQ(WidthOf(window), WidthOf(docked));
        EXPECT_EQ(HeightOf(window), HeightOf(docked));
        if (docked.left != window.left)
            ExpectDocked({docked.left, docked.right}, {whole.left, whole.right}, {bounds.left, bounds.right});
        if (docked.top != window.top)
            ExpectDocked({docked.top, docked.bottom}, {whole.top, whole.bottom}, {bounds.top, bounds.bottom});
        // A window that sticks out of both sides of a display goes by its left side first, and then by its right one.
        if (!FitsEverywhere(layout, window)) return;
        RECT twice = docked;
        EXPECT_FALSE(DockRect(twice, whole, bounds)) << docked << " became " << twice;
        // Without bars each edge that has a display behind it is an inner one.
        EXPECT_TRUE(layout.HasBars() || layout.OverlappedBy(docked) <= 1) << docked << " is split";
    });
}

// As the drag is done: each step starts from where the cursor alone would have brought the window.
TEST(DockProperties, ADragOutAndBackEndsWhereItBegan) {
    TryOnEachLayout([](const Layout& layout, const RECT& start, Dice& dice) {
        const auto shownAt = [&](const RECT& followed) {
            RECT shown = followed;
            DockRect(shown, layout.Nearest(followed).whole, layout.WorkBounds());
            return shown;
        };
        const RECT first = shownAt(start);
        RECT followed = start;
        POINT way = {};
        for (int step = 0; step < 12; ++step) {
            const POINT move = {dice.Between(-300, 300), dice.Between(-300, 300)};
            followed = Shifted(followed, move.x, move.y);
            way = {way.x + move.x, way.y + move.y};
            const RECT shown = shownAt(followed);
            EXPECT_EQ(shown, shownAt(Shifted(start, way.x, way.y))) << "the place hangs on the way to it";
        }
        EXPECT_EQ(first, shownAt(Shifted(followed, -way.x, -way.y)));
    });
}

TEST(PlaceProperties, AWindowBroughtWithinReachHasItsCornerThere) {
    TryOnEachLayout([](const Layout& layout, const RECT& window, Dice&) {
        const RECT area = layout.Nearest(window).workArea;
        const RECT placed = BroughtInto(window, area);
        EXPECT_EQ(WidthOf(window), WidthOf(placed));
        EXPECT_EQ(HeightOf(window), HeightOf(placed));
        EXPECT_TRUE(placed.left >= area.left && placed.left < area.right) << placed << " in " << area;
        EXPECT_TRUE(placed.top >= area.top && placed.top < area.bottom) << placed << " in " << area;
        const bool fits = WidthOf(window) <= WidthOf(area) && HeightOf(window) <= HeightOf(area);
        EXPECT_EQ(fits, Contains(area, placed)) << placed << " in " << area;
        EXPECT_TRUE(!Contains(area, window) || placed == window) << placed;
    });
}

TEST(PlaceProperties, ACentredWindowIsNeverOutOfItsTargetsCorner) {
    TryOnEachLayout([](const Layout& layout, const RECT& window, Dice& dice) {
        const RECT bounds = layout.WorkBounds();
        const RECT target = dice.Window(bounds, 1500, 1100);
        const POINT place = CentredOn(window, target, bounds);
        EXPECT_TRUE(place.x >= target.left && place.y >= target.top) << place << " on " << target;
        EXPECT_GE(place.x, bounds.left) << place << " on " << target;
        // Nothing held it back: as much room on the one side as on the other, but for what the halves lose.
        const RECT centred = Shifted(window, place.x - window.left, place.y - window.top);
        if (Contains(target, centred) && Contains(Grown(bounds, -2), target)) {
            EXPECT_NEAR(centred.left - target.left, target.right - centred.right, 2) << centred << " on " << target;
            EXPECT_NEAR(centred.top - target.top, target.bottom - centred.bottom, 2) << centred << " on " << target;
        }
    });
}

}  // namespace
}  // namespace halyard::test
