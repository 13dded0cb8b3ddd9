// Windows hidden and shown with their desktops.
#include "server/server_fixture.h"

namespace halyard::test {
namespace {

constexpr DesktopId Here = 1;
constexpr DesktopId Elsewhere = 2;
constexpr DWORD Shown = WS_OVERLAPPEDWINDOW | WS_VISIBLE;

struct SweepCase {
    bool visible;
    DesktopId desktop;
    bool hidden;
    bool visibleAfter;
    bool hiddenAfter;
};

constexpr SweepCase SweepCases[] = {
    {true, Elsewhere, false, false, true},   {true, Elsewhere, true, false, true},
    {true, Here, true, true, false},         {true, AllDesktopsId, true, true, false},
    {true, Here, false, true, false},        {true, AllDesktopsId, false, true, false},
    {false, Here, true, true, false},        {false, AllDesktopsId, true, false, true},
    {false, Elsewhere, true, false, true},   {false, Here, false, false, false},
    {false, Elsewhere, false, false, false}, {false, AllDesktopsId, false, false, false},
};

class WindowDesktopMapTest : public ServerTest {
protected:
    WindowDesktopMapTest() { SetCurrentDesktopId(Here); }

    WindowDesktopMap map;
};

TEST_F(WindowDesktopMapTest, SweepsEachWindowByItsDesktop) {
    for (const SweepCase& test : SweepCases) {
        SCOPED_TRACE("visible " + std::to_string(test.visible) + ", desktop " +
                     std::to_string(static_cast<int>(test.desktop)) + ", hidden " + std::to_string(test.hidden));
        const TestWindow window(WindowForm{.style = test.visible ? Shown : Shown & ~WS_VISIBLE});
        WindowDesktopRecord record(window.get(), test.desktop);
        record.hidden = test.hidden;
        for (int sweep = 0; sweep < 2; ++sweep) {
            map.SweepOne(record);
            EXPECT_EQ(test.hiddenAfter, record.hidden);
            EXPECT_TRUE(Becomes(test.visibleAfter, window.get()));
        }
    }
}

TEST_F(WindowDesktopMapTest, TakesPopupsAlongThatHaveNoDesktopOfTheirOwn) {
    const TestWindow owner(WindowForm{.style = Shown});
    const TestWindow popup({.style = WS_POPUP | WS_VISIBLE, .parent = owner.get()});
    const TestWindow ofPopup({.style = WS_POPUP | WS_VISIBLE, .parent = popup.get()});
    const TestWindow mapped({.style = WS_POPUP | WS_VISIBLE, .parent = owner.get()});
    map.Assign(owner.get(), Elsewhere);
    map.Assign(mapped.get(), Here);
    for (const bool here : {true, false}) {
        SetCurrentDesktopId(here ? Here : Elsewhere);
        map.SweepAll();
        for (const TestWindow* window : {&owner, &popup, &ofPopup})
            EXPECT_TRUE(Becomes(!here, window->get()));
        EXPECT_TRUE(Becomes(here, mapped.get()));
    }
}

TEST_F(WindowDesktopMapTest, BringsAWindowBackInTheStateThatItHad) {
    enum Way { Sweep, Forget, Release };
    for (const DWORD state : {DWORD(0), DWORD(WS_MINIMIZE), DWORD(WS_MAXIMIZE)}) {
        for (const Way way : {Sweep, Forget, Release}) {
            SCOPED_TRACE(testing::Message() << std::hex << "state " << state << " way " << way);
            const TestWindow window(WindowForm{.style = Shown | state});
            const TestWindow unseen(WindowForm{.style = WS_OVERLAPPEDWINDOW});
            map.Assign(window.get(), Elsewhere);
            map.Assign(unseen.get(), Elsewhere);
            PumpAll();
            EXPECT_TRUE(IsWindowVisible(window.get())) << "a new one is only recorded";
            map.Assign(window.get(), Elsewhere);
            EXPECT_TRUE(Becomes(false, window.get()));
            if (way == Sweep) map.Assign(window.get(), Here);
            if (way == Forget) map.Forget(window.get());
            if (way == Release) map.ReleaseAll();
            EXPECT_TRUE(Becomes(true, window.get()));
            EXPECT_EQ(state == WS_MINIMIZE, IsIconic(window.get()) != FALSE);
            EXPECT_EQ(state == WS_MAXIMIZE, IsZoomed(window.get()) != FALSE);
            map.ReleaseAll();
            PumpAll();
            EXPECT_FALSE(IsWindowVisible(unseen.get())) << "the map has not hidden it";
            EXPECT_EQ(0u, map.Count());
        }
    }
}

TEST_F(WindowDesktopMapTest, MovesTheWindowsOfOneDesktopOrAllAndPurgesTheDead) {
    const TestWindow first(WindowForm{.style = Shown});
    const TestWindow second(WindowForm{.style = Shown});
    const TestWindow everywhere(WindowForm{.style = Shown});
    map.Assign(first.get(), Elsewhere);
    map.Assign(second.get(), Here);
    map.Assign(everywhere.get(), AllDesktopsId);
    map.Assign(TestWindow().get(), Here);
    map.SweepAll();
    map.PurgeDead();
    EXPECT_EQ(3u, map.Count());
    EXPECT_TRUE(Becomes(false, first.get())) << "hidden, not dead";
    map.MoveWindows(Elsewhere, Here);
    EXPECT_TRUE(Becomes(true, first.get()));
    EXPECT_EQ(2u, map.CountOn(Here));
    map.MoveAllWindows(5);
    for (const TestWindow* window : {&first, &second, &everywhere})
        EXPECT_TRUE(Becomes(false, window->get()));
    EXPECT_EQ(3u, map.CountOn(5));
}

}  // namespace
}  // namespace halyard::test
