#include "displays/displays.h"

#include "support/rect_values.h"
#include "support/store_fixture.h"

#include <vector>

namespace halyard::test {
namespace {

// What the platform enumerates in the test.
std::vector<HMONITOR> shown;

BOOL WINAPI EnumerateShown(HDC, const RECT*, MONITORENUMPROC callback, LPARAM data) {
    for (const HMONITOR display : shown)
        if (!callback(display, nullptr, nullptr, data)) break;
    return TRUE;
}

RECT AreaOf(HMONITOR display) {
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    GetMonitorInfoA(display, &info);
    return info.rcWork;
}

struct DisplaysTest : StoreTest {
    DisplaysTest() {
        const auto note = [](HMONITOR display, HDC, RECT*, LPARAM) WINAPI { return shown.push_back(display), TRUE; };
        shown.clear();
        EnumDisplayMonitors(nullptr, nullptr, note, 0);
        all = shown;
        for (const HMONITOR display : all)
            bounds = UnionOf(bounds, AreaOf(display));
        RefreshDisplays();
        profile.enumDisplayMonitors = EnumerateShown;
    }
    ~DisplaysTest() override {
        profile.enumDisplayMonitors = EnumDisplayMonitors;
        RefreshDisplays();
    }
    std::vector<HMONITOR> all;
    const RECT first = AreaOf(MonitorFromPoint({0, 0}, MONITOR_DEFAULTTOPRIMARY));
    RECT bounds = first;  // of all work areas
};

TEST_F(DisplaysTest, FollowsThePlatform) {
    const DisplaySet set = CurrentDisplays();
    ASSERT_EQ(all.size(), set.count);
    for (const HMONITOR display : all)
        EXPECT_EQ(AreaOf(display), set.displays[set.IndexOf(HandleBits(display))].workArea);
    shown = {MonitorFromPoint({0, 0}, MONITOR_DEFAULTTOPRIMARY)};
    EXPECT_EQ(bounds, WorkBounds()) << "not before a refresh";
    RefreshDisplays();
    EXPECT_EQ(1u, CurrentDisplays().count);
    EXPECT_EQ(first, WorkBounds());
    profile.enumDisplayMonitors = nullptr;
    RefreshDisplays();
    EXPECT_EQ(0u, CurrentDisplays().count);
    EXPECT_EQ(first, WorkBounds()) << "kept where nothing can be enumerated";
    profile.enumDisplayMonitors = EnumerateShown;
    shown.assign(13, all[0]);
    shown[0] = HandleFromBits<HMONITOR>(0x7EADBEEF);  // one that goes away before it is asked about
    RefreshDisplays();
    EXPECT_EQ(10u, CurrentDisplays().count);
}

}  // namespace
}  // namespace halyard::test
