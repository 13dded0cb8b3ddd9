#include "behaviour_fixture.h"

#include <atomic>
#include <functional>
#include <thread>

namespace halyard::test {
namespace {

class DisplaysTest : public BehaviourTest {};

unsigned callbacks = 0;

// More displays than there are: the real ones over and over.
BOOL WINAPI EnumerateTwelve(HDC, const RECT*, MONITORENUMPROC callback, LPARAM data) {
    const auto real = RealDisplays();
    for (callbacks = 0; callbacks < 12;)
        if (!callback(real[callbacks++ % real.size()].handle, nullptr, nullptr, data)) break;
    return TRUE;
}

// One that goes away before it is asked about.
BOOL WINAPI EnumerateWithDead(HDC context, const RECT* clip, MONITORENUMPROC callback, LPARAM data) {
    callback(HandleFromBits<HMONITOR>(0x7EADBEEF), nullptr, nullptr, data);
    return EnumDisplayMonitors(context, clip, callback, data);
}

TEST_F(DisplaysTest, KnowsTheRealDisplays) {
    const DisplaySet set = CurrentDisplays();
    ASSERT_EQ(displays.size(), set.count);
    for (const RealDisplay& display : displays) {
        const unsigned index = set.IndexOf(HandleBits(display.handle));
        ASSERT_NE(DisplaySet::None, index) << display.whole;
        EXPECT_EQ(display.workArea, set.displays[index].workArea);
        EXPECT_TRUE(index == 0 || set.displays[index - 1].handle < set.displays[index].handle);
    }
    EXPECT_EQ(bounds, set.workBounds);
    EXPECT_EQ(bounds, WorkBounds());
    EXPECT_EQ(GetSystemMetrics(SM_CYCAPTION) + GetSystemMetrics(SM_CYEDGE), CascadeStep());
    EXPECT_GT(CascadeStep(), 0);
}

TEST_F(DisplaysTest, FollowsThePlatform) {
    PretendDisplays(1);
    EXPECT_EQ(bounds, WorkBounds()) << "not before a refresh";
    RefreshDisplays();
    EXPECT_EQ(1u, CurrentDisplays().count);
    EXPECT_EQ(displays[0].workArea, WorkBounds());

    profile.enumDisplayMonitors = nullptr;
    RefreshDisplays();
    EXPECT_EQ(0u, CurrentDisplays().count);
    EXPECT_EQ(displays[0].workArea, WorkBounds()) << "kept where nothing can be enumerated";

    PretendDisplays(0);
    RefreshDisplays();
    EXPECT_EQ((RECT{}), WorkBounds());

    profile.enumDisplayMonitors = EnumerateWithDead;
    RefreshDisplays();
    EXPECT_EQ(displays.size(), CurrentDisplays().count);
    EXPECT_EQ(bounds, WorkBounds());

    profile.enumDisplayMonitors = EnumerateTwelve;
    RefreshDisplays();
    EXPECT_EQ(10u, callbacks) << "the enumeration is told to stop";
    EXPECT_EQ(10u, CurrentDisplays().count);
}

std::atomic<unsigned> round = 0;

// Now all displays, now the first alone.
BOOL WINAPI EnumerateInTurn(HDC, const RECT*, MONITORENUMPROC callback, LPARAM data) {
    static const auto real = RealDisplays();
    const std::size_t count = round++ % 2 ? 1 : real.size();
    for (std::size_t index = 0; index < count; ++index)
        callback(real[index].handle, nullptr, nullptr, data);
    return TRUE;
}

// Each reader by itself: a wait for the lock in one would keep the other away from the moment of the change.
TEST_F(DisplaysTest, IsReadWholeBesideARefresh) {
    profile.enumDisplayMonitors = EnumerateInTurn;
    RefreshDisplays();
    const RECT alone = displays[0].workArea;
    const auto countTorn = [&](const std::function<bool()>& isWhole) {
        std::atomic<bool> ended = false;
        std::thread writer([&] {
            for (unsigned turn = 0; turn < 2000; ++turn)
                RefreshDisplays();
            ended = true;
        });
        unsigned torn = 0;
        while (!ended)
            torn += !isWhole();
        writer.join();
        return torn;
    };
    unsigned small = 0;
    unsigned large = 0;
    EXPECT_EQ(0u, countTorn([&] {
                  const DisplaySet set = CurrentDisplays();
                  const bool first = set.count == 1 && set.workBounds == alone;
                  const bool all = set.count == displays.size() && set.workBounds == bounds;
                  small += first;
                  large += all;
                  return first || all;
              }));
    EXPECT_GT(small, 0u);
    EXPECT_GT(large, 0u);
    EXPECT_EQ(0u, countTorn([&] {
                  const RECT read = WorkBounds();
                  return read == alone || read == bounds;
              }));
}

}  // namespace
}  // namespace halyard::test
