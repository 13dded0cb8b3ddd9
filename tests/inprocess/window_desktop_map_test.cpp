// Windows hidden and shown with their desktops.
#include "server_fixture.h"

#include <thread>

namespace halyard::test {
namespace {

constexpr DesktopId Here = 1;
constexpr DesktopId Elsewhere = 2;

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

    // Whether the map hides the window; nothing for one that it doesn't know.
    std::optional<bool> Hidden(const TestWindow& window) {
        const WindowDesktopRecord* record = map.Find(window.get());
        return record ? std::optional(record->hidden) : std::nullopt;
    }

    // A window that the map has hidden with desktop 2.
    struct HiddenWindow : TestWindow {
        explicit HiddenWindow(WindowDesktopMap& map, DWORD state = 0)
            : TestWindow(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE | state}) {
            map.Assign(get(), Elsewhere);
            map.SweepAll();
            EXPECT_TRUE(Becomes(false, get()));
        }
    };

    static constexpr DWORD Shown = WS_OVERLAPPEDWINDOW | WS_VISIBLE;
    WindowDesktopMap map;
};

TEST_F(WindowDesktopMapTest, SweepsEachWindowByItsDesktop) {
    for (const SweepCase& test : SweepCases) {
        SCOPED_TRACE("visible " + std::to_string(test.visible) + ", desktop " +
                     std::to_string(static_cast<int>(test.desktop)) + ", hidden " + std::to_string(test.hidden));
        const TestWindow window(WindowForm{.style = test.visible ? Shown : Shown & ~WS_VISIBLE});
        WindowDesktopRecord record(window.get(), test.desktop);
        record.hidden = test.hidden;
        map.SweepOne(record);
        EXPECT_EQ(test.hiddenAfter, record.hidden);
        EXPECT_TRUE(Becomes(test.visibleAfter, window.get()));
        map.SweepOne(record);
        PumpAll();
        EXPECT_EQ(test.visibleAfter, IsWindowVisible(window.get()) != FALSE) << "after one more";
    }
}

TEST_F(WindowDesktopMapTest, TakesPopupsAlongThatHaveNoDesktopOfTheirOwn) {
    const TestWindow owner(WindowForm{.style = Shown});
    const DWORD popupStyle = WS_POPUP | WS_VISIBLE;
    const TestWindow popup({.style = popupStyle, .parent = owner.get()});
    const TestWindow ofPopup({.style = popupStyle, .parent = popup.get()});
    const TestWindow unseen({.style = WS_POPUP, .parent = owner.get()});
    const TestWindow mapped({.style = popupStyle, .parent = owner.get()});
    const TestWindow alone(WindowForm{.style = popupStyle});
    map.Assign(owner.get(), Elsewhere);
    map.Assign(mapped.get(), Here);
    map.SweepAll();
    for (const TestWindow* window : {&owner, &popup, &ofPopup})
        EXPECT_TRUE(Becomes(false, window->get()));
    for (const TestWindow* window : {&mapped, &alone})
        EXPECT_TRUE(IsWindowVisible(window->get()));
    SetCurrentDesktopId(Elsewhere);
    map.SweepAll();
    for (const TestWindow* window : {&owner, &popup, &ofPopup})
        EXPECT_TRUE(Becomes(true, window->get()));
    EXPECT_FALSE(IsWindowVisible(unseen.get()));
    EXPECT_TRUE(Becomes(false, mapped.get()));
}

TEST_F(WindowDesktopMapTest, RecordsANewWindowAndSweepsAKnownOne) {
    const TestWindow window(WindowForm{.style = Shown});
    map.Assign(window.get(), Elsewhere);
    PumpAll();
    EXPECT_TRUE(IsWindowVisible(window.get()));
    EXPECT_EQ(false, Hidden(window));
    map.Assign(window.get(), Elsewhere);
    EXPECT_EQ(true, Hidden(window));
    EXPECT_TRUE(Becomes(false, window.get()));
    map.Assign(window.get(), Here);
    EXPECT_EQ(false, Hidden(window));
    EXPECT_TRUE(Becomes(true, window.get()));
    map.Record(window.get(), Elsewhere);
    PumpAll();
    EXPECT_TRUE(IsWindowVisible(window.get())) << "only recorded";
    EXPECT_EQ(1u, map.Count());
    EXPECT_EQ(Elsewhere, map.Find(window.get())->desktopId);
}

TEST_F(WindowDesktopMapTest, BringsAWindowBackInTheStateThatItHad) {
    enum Way { Sweep, Forget, Release };
    for (const DWORD state : {DWORD(0), DWORD(WS_MINIMIZE), DWORD(WS_MAXIMIZE)}) {
        for (const Way way : {Sweep, Forget, Release}) {
            SCOPED_TRACE(testing::Message() << std::hex << "state " << state << " way " << way);
            const HiddenWindow window(map, state);
            const HiddenWindow other(map);
            if (way == Sweep) map.Assign(window.get(), Here);
            if (way == Forget) map.Forget(window.get());
            if (way == Release) map.ReleaseAll();
            EXPECT_TRUE(Becomes(true, window.get()));
            EXPECT_EQ(state == WS_MINIMIZE, IsIconic(window.get()) != FALSE);
            EXPECT_EQ(state == WS_MAXIMIZE, IsZoomed(window.get()) != FALSE);
            EXPECT_EQ(way == Sweep ? std::optional(false) : std::nullopt, Hidden(window));
            EXPECT_TRUE(Becomes(way == Release, other.get()));
            map.ReleaseAll();
            EXPECT_EQ(0u, map.Count());
        }
    }
    map.Forget(nullptr);
}

TEST_F(WindowDesktopMapTest, ForgetsAWindowThatItDidNotHideWithoutShowingIt) {
    const TestWindow window(WindowForm{.style = WS_OVERLAPPEDWINDOW});
    map.Assign(window.get(), Here);
    map.Forget(window.get());
    map.Assign(window.get(), Here);
    map.ReleaseAll();
    PumpAll();
    EXPECT_FALSE(IsWindowVisible(window.get()));
}

TEST_F(WindowDesktopMapTest, PurgesTheDeadOnly) {
    const HiddenWindow hidden(map);
    HWND dead[2];
    for (HWND& handle : dead)
        map.Assign(handle = TestWindow().get(), Here);
    EXPECT_EQ(3u, map.Count());
    map.SweepAll();
    map.PurgeDead();
    EXPECT_EQ(1u, map.Count());
    EXPECT_EQ(true, Hidden(hidden));
    PumpAll();
    EXPECT_FALSE(IsWindowVisible(hidden.get()));
}

TEST_F(WindowDesktopMapTest, MovesTheWindowsOfOneDesktopOrAll) {
    const HiddenWindow first(map);
    const TestWindow second(WindowForm{.style = Shown});
    const TestWindow everywhere(WindowForm{.style = Shown});
    map.Assign(second.get(), Here);
    map.Assign(everywhere.get(), AllDesktopsId);
    EXPECT_EQ(1u, map.CountOn(Elsewhere));
    EXPECT_EQ(1u, map.CountOn(Here));
    map.MoveWindows(Elsewhere, Here);
    EXPECT_TRUE(Becomes(true, first.get()));
    EXPECT_EQ(2u, map.CountOn(Here));
    EXPECT_EQ(1u, map.CountOn(AllDesktopsId));
    map.MoveAllWindows(5);
    for (const TestWindow* window : {static_cast<const TestWindow*>(&first), &second, &everywhere}) {
        EXPECT_EQ(5u, map.Find(window->get())->desktopId);
        EXPECT_TRUE(Becomes(false, window->get()));
    }
    EXPECT_EQ(3u, map.CountOn(5));
}

TEST_F(WindowDesktopMapTest, WaitsForNoProgramThatHangs) {
    HWND owner = nullptr;
    HWND popup = nullptr;
    const HANDLE made = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    const HANDLE goOn = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    std::thread hung([&] {
        const TestWindow own(WindowForm{.style = Shown});
        const TestWindow owned({.style = WS_POPUP | WS_VISIBLE, .parent = own.get()});
        owner = own.get();
        popup = owned.get();
        SetEvent(made);
        WaitForSingleObject(goOn, 2 * Deadline);
        EXPECT_TRUE(Becomes(false, owner) && Becomes(false, popup));
    });
    WaitForSingleObject(made, Deadline);
    const DWORD start = GetTickCount();
    map.Assign(owner, Here);
    for (const DesktopId current : {Elsewhere, Here, Elsewhere}) {
        SetCurrentDesktopId(current);
        map.SweepAll();
    }
    map.Assign(owner, AllDesktopsId);
    map.Assign(owner, Here);
    EXPECT_LT(GetTickCount() - start, 1000u);
    SetEvent(goOn);
    hung.join();
    CloseHandle(made);
    CloseHandle(goOn);
}

}  // namespace
}  // namespace halyard::test
