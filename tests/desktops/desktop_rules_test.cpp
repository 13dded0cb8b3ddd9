#include "desktops/desktop_rules.h"

#include "process/protocol.h"
#include <gtest/gtest.h>

namespace halyard {
namespace {

TEST(DecideSweep, EveryStateHasItsAction) {
    using enum SweepAction;
    struct Case {
        unsigned desktop;
        SweepAction visible, visibleHidden, invisible, invisibleHidden;  // hidden: by the system
    };
    constexpr unsigned Current = 5;
    constexpr Case Cases[] = {{Current, Nothing, Show, Nothing, Show},
                              {4, Hide, Hide, Nothing, Nothing},
                              {DefaultDesktopId, Hide, Hide, Nothing, Nothing},
                              {UnsavedDesktopId, Hide, Hide, Nothing, Nothing},
                              {AllDesktopsId, Nothing, Show, Nothing, Nothing}};
    for (const Case& test : Cases) {
        SCOPED_TRACE(test.desktop);
        EXPECT_EQ(DecideSweep(true, test.desktop, false, Current), test.visible);
        EXPECT_EQ(DecideSweep(true, test.desktop, true, Current), test.visibleHidden);
        EXPECT_EQ(DecideSweep(false, test.desktop, false, Current), test.invisible);
        EXPECT_EQ(DecideSweep(false, test.desktop, true, Current), test.invisibleHidden);
    }
}

TEST(Neighbour, GoesRoundBothEnds) {
    constexpr unsigned Cases[][4] = {{0, 1, 0, 0}, {0, 2, 1, 1}, {0, 3, 1, 2}, {1, 3, 2, 0}, {2, 3, 0, 1}};
    for (const auto& [position, count, behind, ahead] : Cases) {
        EXPECT_EQ(Neighbour(position, count, 1), behind) << position << " of " << count;
        EXPECT_EQ(Neighbour(position, count, -1), ahead) << position << " of " << count;
    }
}

}  // namespace
}  // namespace halyard
