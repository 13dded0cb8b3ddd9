// Windows hidden and shown with their desktops.
#include "server/server_fixture.h"

namespace halyard::test {
namespace {

constexpr DesktopId Here = 1;
constexpr DesktopId Elsewhere = 2;
constexpr DWORD Shown = WS_OVERLAPPEDWINDOW | WS_VISIBLE;

class WindowDesktopMapTest : public ServerTest {
protected:
    WindowDesktopMapTest() { SetCurrentDesktopId(Here); }

    WindowDesktopMap map;
};

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
