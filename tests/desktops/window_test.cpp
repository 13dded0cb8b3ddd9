// Windows of foreign processes come and go with their desktops, and those that don't answer hold nothing up.
#include "common/handles.h"
#include "support/desktop_fixture.h"

#include <functional>
#include <set>
#include <vector>

namespace halyard::test {

namespace {

using WindowTest = DesktopTest;

TEST_F(WindowTest, ThatOpenUnderTheHooksMoveByMessage) {
    StartLoader();
    Switch(2);
    const Sample moved = OpenSample("Moved");
    const Sample everywhere = OpenSample("Everywhere");
    const Sample unshown = OpenSample("Unshown", "--hidden");
    ASSERT_TRUE(WindowsBecome(2, 2)) << "a window belongs to the desktop of its birth, once it is to be seen";

    Assign(moved.window, 1);
    EXPECT_TRUE(BecomesHidden(moved.window));
    Assign(everywhere.window, published::AllDesktops);
    const HWND popup = OpenPopup(everywhere, true);
    Ask(popup, sample::ShowAs, SW_HIDE);
    for (int id : {1, 2, 0, 1}) {
        Switch(id);
        for (HWND window : {unshown.window, popup})
            EXPECT_TRUE(StaysHidden(window)) << "its program has hidden it; on desktop " << id;
        EXPECT_TRUE(StaysVisible(everywhere.window)) << "on desktop " << id;
        EXPECT_TRUE(id == 1 ? BecomesVisible(moved.window) : BecomesHidden(moved.window)) << "on desktop " << id;
    }
    // An id that no desktop has stands for the default desktop.
    Assign(moved.window, 77);
    EXPECT_TRUE(BecomesHidden(moved.window));
    EXPECT_TRUE(WindowsBecome(0, 1));
    Switch(77);
    EXPECT_EQ(Status("current desktop"), "1");
}

using HungTest = DesktopTest;

TEST_F(HungTest, ProgramsDontHoldASwitchUpAndFollowTheLast) {
    const KernelHandle wake(CreateEventA(nullptr, TRUE, FALSE, sample::WakeEvent));
    WriteNumber(DesktopKey(1), "Colour", RGB(0x10, 0x50, 0x10));
    StartLoader();
    const Sample alive = OpenSample("Alive");
    std::vector<HWND> frames;
    while (frames.size() < 5) {
        const Sample hung = OpenSample("Hung");
        OpenPopup(hung, true);
        frames.push_back(hung.window);
    }
    ASSERT_TRUE(WindowsBecome(0, 6));
    for (const bool visible : {true, false}) {
        ResetEvent(wake.get());
        for (const HWND frame : frames)
            PostMessageA(frame, sample::Hang, 60000, 0);
        ASSERT_TRUE(Eventually([&] { return Ask(frames.back(), WM_NULL, 0, 0, 50) == -1; }))
            << "the sample should hang";
        // Desktop 1 has another colour, which the platform announces to every window.
        for (int id : {1, 0, 2, 1, 0, 1}) {
            const DWORD start = GetTickCount();
            Switch(id);
            ASSERT_TRUE(id == 0 ? BecomesVisible(alive.window) : BecomesHidden(alive.window)) << "on desktop " << id;
            EXPECT_LT(GetTickCount() - start, 1000u) << "to desktop " << id;
        }
        EXPECT_EQ(SeenWindows().size(), visible ? 10u : 0u) << "they don't hang";
        SetEvent(wake.get());
        for (HWND window : frames)
            ASSERT_TRUE(Eventually([&] { return Ask(window, WM_NULL, 0, 0, 50) == 0; }));
        EXPECT_TRUE(Eventually([] { return SeenWindows().empty(); }));
    }
    Switch(0);
    EXPECT_TRUE(Eventually([] { return SeenWindows().size() == 11; }));
}

using HiddenWindowTest = DesktopTest;

// A window with a popup on the default desktop, one on the next, all left for the third.
TEST_F(HiddenWindowTest, ComesBackHoweverTheSystemGoes) {
    const std::function<void()> ways[] = {[&] { EXPECT_EQ(Loader("--disable").status, 0u); },
                                          [&] { EXPECT_EQ(Loader("--restore").status, 0u); },
                                          [&] {
                                              loader->Kill();
                                              EXPECT_EQ(Loader("--restore").status, 0u);
                                          },
                                          [&] {
                                              loader->Kill();
                                              ASSERT_TRUE(Eventually([] { return !Server(); }));
                                              StartLoader("--no-guard");
                                          }};
    for (const auto& leave : ways) {
        SCOPED_TRACE(&leave - ways);
        StartLoader("--no-guard");  // which does it as well
        const Sample onDefault = OpenSample("On default");
        ASSERT_TRUE(WindowsBecome(0, 1));
        OpenPopup(onDefault, true);
        Switch(1);
        OpenSample("On one");
        ASSERT_TRUE(WindowsBecome(1, 1));
        Switch(2);
        ASSERT_TRUE(Eventually([] { return SeenWindows().empty(); }));
        leave();
        EXPECT_TRUE(Eventually([] { return SeenWindows().size() == 3; }));
        if (Server()) {
            EXPECT_EQ(Loader("--disable --enable").status, 0u);
            EXPECT_TRUE(WindowsBecome(0, 2)) << "reported again, all on the desktop that is current now";
        }
        QuitLoader();
        children.EndAll();
    }
}

TEST_F(WindowTest, OfTheDesktopsNameComeOnEachDisplayForAMoment) {
    WriteNumber(published::ProductKey, "ShowDesktopName", 1);
    StartLoader();
    const auto signs = [] {
        std::set<HMONITOR> found;
        for (HWND window : TopLevelWindows())
            if (IsWindowVisible(window) && Describe(window).find("HalyardNameWnd") != std::string::npos)
                found.insert(MonitorFromWindow(window, MONITOR_DEFAULTTONULL));
        return found.size();
    };
    const Sample sample = OpenSample("Sample");
    ASSERT_TRUE(WindowsBecome(0, 1));
    Assign(sample.window, published::AllDesktops);
    SetForegroundWindow(sample.window);
    Switch(1);
    Switch(2);
    EXPECT_TRUE(Eventually([&] { return signs() == 2; }));
    EXPECT_TRUE(BecomesFront(sample.window));
    EXPECT_TRUE(Eventually([&] { return signs() == 0; }, 3000));
}

}  // namespace

}  // namespace halyard::test
