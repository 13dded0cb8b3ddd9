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
        tray.Start(children);
        for (const char* title : {"A", "B", "C"})
            OpenAt(title, {100, 100});
        StartLoader();
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
        return Eventually([=] { return Mirrors().size() == count; });
    }
    // Each mirror stands in the middle of its display, and shows the same as the original, whose picture is returned.
    static std::vector<COLORREF> MirroredPicture() {
        const RECT place = PlaceOf(SwitchWindow());
        for (HWND mirror : Mirrors()) {
            const RECT own = PlaceOf(mirror);
            MONITORINFO info = {};
            info.cbSize = sizeof(info);
            GetMonitorInfoA(MonitorFromWindow(mirror, MONITOR_DEFAULTTONEAREST), &info);
            EXPECT_EQ(own.left - place.left, info.rcMonitor.left) << Describe(mirror);
            EXPECT_EQ(own.top - place.top, info.rcMonitor.top) << Describe(mirror);
            EXPECT_TRUE(Eventually([&] { return PixelsOf(own) == PixelsOf(place); })) << Describe(mirror);
        }
        return PixelsOf(place);
    }
};

TEST_F(MirrorTest, EachOtherDisplayFollowsTheSwitchWhileAltIsHeld) {
    ASSERT_TRUE(Arrange(ThreeInARow()));
    {
        const HeldKey alt("alt");
        TapKey("Tab");
        ASSERT_TRUE(MirrorsBecome(2));
        const std::vector<COLORREF> first = MirroredPicture();
        TapKey("Tab");
        EXPECT_TRUE(Eventually([&] { return PixelsOf(PlaceOf(SwitchWindow())) != first; }));
        MirroredPicture();
        const HeldKey shift("shift");
        TapKey("Tab");
        EXPECT_TRUE(Eventually([&] { return MirroredPicture() == first; }));
    }
    EXPECT_TRUE(MirrorsBecome(0));
}

TEST_F(MirrorTest, ThePrimaryDisplayHasTheOriginalOnly) {
    ASSERT_TRUE(Arrange({SideBySide()[0]}));
    const HeldKey alt("alt");
    TapKey("Tab");
    EXPECT_TRUE(Eventually([] { return SwitchWindow() != nullptr; }));
    EXPECT_GE(AskServer(WM_NULL), 0);
    EXPECT_TRUE(Mirrors().empty());
}

TEST_F(MirrorTest, EndsWithItsSettingAndItsServer) {
    const auto isHeld = [] {
        if (!RegisterHotKey(nullptr, 1, MOD_ALT, VK_TAB)) return true;
        UnregisterHotKey(nullptr, 1);
        return false;
    };
    for (const bool on : {false, true}) {
        Set("TaskswitchMirrorEnable", on);
        AskServer(published::Restart, 1);
        EXPECT_EQ(isHeld(), on);
    }
    const HeldKey alt("alt");
    TapKey("Tab");
    ASSERT_TRUE(MirrorsBecome(1));
    // Whoever else closes the original leaves the mirror, with nothing to paint.
    PostMessageA(SwitchWindow(), WM_CLOSE, 0, 0);
    ASSERT_TRUE(Eventually([] { return SwitchWindow() == nullptr; }));
    RedrawWindow(Mirrors()[0], nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_TRUE(MirrorsBecome(1));
    QuitLoader();
    EXPECT_TRUE(MirrorsBecome(0));
    EXPECT_FALSE(isHeld());
}

}  // namespace

}  // namespace halyard::test
