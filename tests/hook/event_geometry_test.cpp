#include "hook/event_geometry.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace halyard {
namespace {

using Numbers = std::vector<LONG>;

Numbers Edges(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

TEST(KeepInside, GivesTheNearestPlace) {
    constexpr RECT Frame = {-400, 100, 0, 400};
    constexpr std::pair<RECT, POINT> Cases[] = {{{-400, 300, -300, 400}, {-400, 300}},
                                                {{-401, 301, -301, 401}, {-400, 300}},
                                                {{9, 9, 109, 109}, {-100, 100}},
                                                // Of what is too large, the far edges meet.
                                                {{-500, 0, 1, 500}, {-501, -100}}};
    for (const auto& [popup, corner] : Cases) {
        const POINT kept = KeepInside(popup, Frame);
        EXPECT_EQ((Numbers{kept.x, kept.y}), (Numbers{corner.x, corner.y}));
    }
}

TEST(CaptionButtons, LieLeftOfTheCloseButton) {
    EXPECT_EQ(Edges(CaptionButtons({100, 50, 500, 400}, {4, 5, 18, 19})), (Numbers{452, 55, 478, 74}));
    EXPECT_EQ(Edges(CaptionButtons({-1280, -200, -280, 500}, {4, 5, 18, 19})), (Numbers{-328, -195, -302, -176}));
}

}  // namespace
}  // namespace halyard
