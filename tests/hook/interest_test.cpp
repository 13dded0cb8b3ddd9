#include "hook/event_geometry.h"
#include "hook/interest_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace halyard {
namespace {

using Numbers = std::vector<LONG>;

Numbers Edges(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

// The nearest place inside; of what is too large, the far edges meet.
TEST(KeepInside, HoldsForAnyPlaceAndSize) {
    std::mt19937 random(99);
    const auto any = [&](LONG from, LONG to) { return from + static_cast<LONG>(random() % (to - from)); };
    const auto place = [](LONG before, LONG size, LONG low, LONG high) {
        return size > high - low ? high - size : std::clamp(before, low, high - size);
    };
    for (int step = 0; step < 20000 && !testing::Test::HasFailure(); ++step) {
        RECT frame = {any(-3000, 3000), any(-3000, 3000), 0, 0}, popup = {any(-4000, 4000), any(-4000, 4000), 0, 0};
        const LONG width = any(0, 2000), height = any(0, 2000);
        frame.right = frame.left + any(0, 1500), frame.bottom = frame.top + any(0, 1500);
        popup.right = popup.left + width, popup.bottom = popup.top + height;
        const POINT corner = KeepInside(popup, frame);
        EXPECT_EQ((Numbers{corner.x, corner.y}), (Numbers{place(popup.left, width, frame.left, frame.right),
                                                          place(popup.top, height, frame.top, frame.bottom)}))
            << "popup " << testing::PrintToString(Edges(popup)) << " frame " << testing::PrintToString(Edges(frame));
    }
}

TEST(CaptionButtons, LieLeftOfTheCloseButton) {
    EXPECT_EQ(Edges(CaptionButtons({100, 50, 500, 400}, {4, 5, 18, 19})), (Numbers{452, 55, 478, 74}));
    EXPECT_EQ(Edges(CaptionButtons({-1280, -200, -280, 500}, {4, 5, 18, 19})), (Numbers{-328, -195, -302, -176}));
}

}  // namespace
}  // namespace halyard
