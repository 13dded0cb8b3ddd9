// The task-switch window on all displays.
#include "support/picture.h"
#include "taskbars/taskbar_fixture.h"

namespace halyard::test {

namespace {

class MirrorTest : public TaskbarTest {
protected:
    void SetUp() override {
        TaskbarTest::SetUp();
        Set("TaskbarsEnable", 0);
        Set("TaskswitchMirrorEnable", 1);
    }

    static HWND SwitchWindow() { return FindWindowA(reinterpret_cast<const char*>(32771), nullptr); }
    static std::vector<HWND> Mirrors() {
        std::vector<HWND> mirrors;
        for (HWND mirror = nullptr;
             (mirror = FindWindowExA(nullptr, mirror, "TevralWinswitchWindow", nullptr)) != nullptr;)
            mirrors.push_back(mirror);
        return mirrors;
    }
    static bool MirrorsBecome(std::size_t count) {
        return Eventually([&] { return Mirrors().size() == count; });
    }
    // Each mirror has the size of the original, stands in the middle of its display, and shows the same.
    static void ExpectMirrored() {
        HWND original = SwitchWindow();
        ASSERT_NE(original, nullptr);
        const RECT place = PlaceOf(original);
        for (HWND mirror : Mirrors()) {
            const RECT own = PlaceOf(mirror);
            EXPECT_EQ(own.right - own.left, place.right - place.left);
            EXPECT_EQ(own.bottom - own.top, place.bottom - place.top);
            MONITORINFO info = {};
            info.cbSize = sizeof(info);
            GetMonitorInfoA(MonitorFromWindow(mirror, MONITOR_DEFAULTTONEAREST), &info);
            EXPECT_NEAR((own.left + own.right) / 2, (info.rcMonitor.left + info.rcMonitor.right) / 2, 1);
            EXPECT_NEAR((own.top + own.bottom) / 2, (info.rcMonitor.top + info.rcMonitor.bottom) / 2, 1);
            EXPECT_TRUE(Eventually([&] { return PixelsOf(PlaceOf(mirror)) == PixelsOf(PlaceOf(original)); }));
        }
    }
};

// With that number of displays.
class MirrorDisplaysTest : public MirrorTest, public testing::WithParamInterface<std::size_t> {};

TEST_P(MirrorDisplaysTest, EachButThePrimaryOneShowsTheSwitchWhileAltIsHeld) {
    std::vector<Display> displays = ThreeInARow();
    if (GetParam() < 3) displays = SideBySide();
    displays.resize(GetParam());
    ASSERT_TRUE(Arrange(displays));
    tray.Start(children);
    OpenAt("A", {100, 100});
    const Sample back = OpenAt("B", {200, 200});
    OpenAt("C", {300, 300});
    StartLoader();
    {
        const HeldKey alt("alt");
        TapKey("Tab");
        EXPECT_TRUE(Eventually([] { return SwitchWindow() != nullptr; })) << "no task switch";
        EXPECT_TRUE(MirrorsBecome(GetParam() - 1)) << Mirrors().size();
        ExpectMirrored();
    }
    EXPECT_TRUE(MirrorsBecome(0)) << Mirrors().size();
    EXPECT_TRUE(Eventually([] { return SwitchWindow() == nullptr; }));
    EXPECT_TRUE(Eventually([&] { return GetForegroundWindow() == back.window; })) << Describe(GetForegroundWindow());
}

INSTANTIATE_TEST_SUITE_P(Displays, MirrorDisplaysTest, testing::Values(1, 2, 3));

TEST_F(MirrorTest, FollowsEachStepForwardAndBack) {
    tray.Start(children);
    OpenAt("A", {100, 100});
    OpenAt("B", {200, 200});
    const Sample front = OpenAt("C", {300, 300});
    StartLoader();
    {
        const HeldKey alt("alt");
        TapKey("Tab");
        ASSERT_TRUE(MirrorsBecome(1));
        ExpectMirrored();
        const std::vector<DWORD> first = PixelsOf(PlaceOf(SwitchWindow()));
        TapKey("Tab");
        EXPECT_TRUE(Eventually([&] { return PixelsOf(PlaceOf(SwitchWindow())) != first; }));
        ExpectMirrored();
        {
            const HeldKey shift("shift");
            TapKey("Tab");
            EXPECT_TRUE(Eventually([&] { return PixelsOf(PlaceOf(SwitchWindow())) == first; }));
            ExpectMirrored();
        }
        // Whoever else closes the original leaves the mirrors until Alt goes up, with nothing to paint.
        PostMessageA(SwitchWindow(), WM_CLOSE, 0, 0);
        ASSERT_TRUE(Eventually([] { return SwitchWindow() == nullptr; }));
        for (HWND mirror : Mirrors())
            RedrawWindow(mirror, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        EXPECT_GE(AskServer(WM_NULL), 0);
    }
    EXPECT_TRUE(MirrorsBecome(0));
    EXPECT_TRUE(IsWindow(front.window));
}

TEST_F(MirrorTest, EndsWithItsSettingAndItsServer) {
    tray.Start(children);
    OpenAt("A", {100, 100});
    const Sample front = OpenAt("B", {200, 200});
    StartLoader();
    const auto isHeld = [] {
        if (!RegisterHotKey(nullptr, 1, MOD_ALT, VK_TAB)) return true;
        UnregisterHotKey(nullptr, 1);
        return false;
    };
    EXPECT_TRUE(isHeld());
    Apply("TaskswitchMirrorEnable", 0);
    EXPECT_FALSE(isHeld());
    Apply("TaskswitchMirrorEnable", 1);
    EXPECT_TRUE(isHeld());
    {
        const HeldKey alt("alt");
        TapKey("Tab");
        ASSERT_TRUE(MirrorsBecome(1));
        QuitLoader();
        EXPECT_TRUE(MirrorsBecome(0));
        EXPECT_FALSE(isHeld());
    }
    EXPECT_TRUE(IsWindow(front.window));
}

}  // namespace

}  // namespace halyard::test
