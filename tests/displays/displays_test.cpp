#include "displays/displays.h"

#include "support/rect_values.h"
#include "support/store_fixture.h"

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

namespace halyard::test {
namespace {

struct RealDisplay {
    HMONITOR handle;
    RECT workArea;
};

BOOL CALLBACK NoteDisplay(HMONITOR display, HDC, RECT*, LPARAM target) {
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    GetMonitorInfoA(display, &info);
    reinterpret_cast<std::vector<RealDisplay>*>(target)->push_back({display, info.rcWork});
    return TRUE;
}

std::vector<RealDisplay> RealDisplays() {
    std::vector<RealDisplay> found;
    EnumDisplayMonitors(nullptr, nullptr, NoteDisplay, reinterpret_cast<LPARAM>(&found));
    return found;
}

struct DisplaysTest : StoreTest {
    DisplaysTest() : bounds(displays.front().workArea) {
        for (const RealDisplay& display : displays)
            bounds = UnionOf(bounds, display.workArea);
        RefreshDisplays();
    }
    ~DisplaysTest() override {
        profile.enumDisplayMonitors = EnumDisplayMonitors;
        RefreshDisplays();
    }
    const std::vector<RealDisplay> displays = RealDisplays();
    RECT bounds;  // of all work areas
};

BOOL WINAPI EnumerateFirst(HDC, const RECT*, MONITORENUMPROC callback, LPARAM data) {
    return callback(RealDisplays().front().handle, nullptr, nullptr, data);
}

unsigned callbacks = 0;

// One that goes away before it is asked about, and then the real ones over and over.
BOOL WINAPI EnumerateTwelve(HDC, const RECT*, MONITORENUMPROC callback, LPARAM data) {
    const auto real = RealDisplays();
    callback(HandleFromBits<HMONITOR>(0x7EADBEEF), nullptr, nullptr, data);
    for (callbacks = 0; callbacks < 12;)
        if (!callback(real[callbacks++ % real.size()].handle, nullptr, nullptr, data)) break;
    return TRUE;
}

TEST_F(DisplaysTest, FollowsThePlatform) {
    const DisplaySet set = CurrentDisplays();
    ASSERT_EQ(displays.size(), set.count);
    for (const RealDisplay& display : displays)
        EXPECT_EQ(display.workArea, set.displays[set.IndexOf(HandleBits(display.handle))].workArea);
    profile.enumDisplayMonitors = EnumerateFirst;
    EXPECT_EQ(bounds, WorkBounds()) << "not before a refresh";
    RefreshDisplays();
    EXPECT_EQ(1u, CurrentDisplays().count);
    EXPECT_EQ(displays[0].workArea, WorkBounds());
    profile.enumDisplayMonitors = nullptr;
    RefreshDisplays();
    EXPECT_EQ(0u, CurrentDisplays().count);
    EXPECT_EQ(displays[0].workArea, WorkBounds()) << "kept where nothing can be enumerated";
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
    EXPECT_EQ(0u, countTorn([&] {
                  const DisplaySet set = CurrentDisplays();
                  return set.count == 1 ? set.workBounds == alone
                                        : set.count == displays.size() && set.workBounds == bounds;
              }));
    EXPECT_EQ(0u, countTorn([&] {
                  const RECT read = WorkBounds();
                  return read == alone || read == bounds;
              }));
}

}  // namespace
}  // namespace halyard::test
