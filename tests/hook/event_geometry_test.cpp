#include "hook/event_geometry.h"

#include "support/rect_values.h"

#include <gtest/gtest.h>

namespace halyard::test {
namespace {

TEST(KeepInside, GivesTheNearestPlace) {
    constexpr std::pair<RECT, POINT> Cases[] = {{{-400, 300, -300, 400}, {-400, 300}},
                                                {{-401, 301, -301, 401}, {-400, 300}},
                                                {{9, 9, 109, 109}, {-100, 100}},
                                                // Of what is too large, the far edges meet.
                                                {{-500, 0, 1, 500}, {-501, -100}}};
    for (const auto& [popup, corner] : Cases)
        EXPECT_EQ(corner, KeepInside(popup, {-400, 100, 0, 400}));
}

}  // namespace
}  // namespace halyard::test
