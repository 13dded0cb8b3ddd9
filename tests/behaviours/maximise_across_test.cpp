#include "behaviours/maximise_across.h"

#include "behaviour_fixture.h"
#include "hook/behaviours.h"

#include <algorithm>

namespace halyard::test {
namespace {

class MaximiseAcrossTest : public BehaviourTest {
protected:
    ~MaximiseAcrossTest() override { HoldControl(false); }

    // For this thread, as if it had taken the key from its queue.
    static void HoldControl(bool down) {
        BYTE keys[256] = {};
        GetKeyboardState(keys);
        keys[VK_CONTROL] = down ? 0x80 : 0;
        SetKeyboardState(keys);
    }

    WindowForm Form() const { return {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE, .place = place}; }

    bool Spans(const KnownWindow& window) const { return window.tracked.maximisedAcross && window.Place() == spanning; }

    // The command as it comes from the queue; the system has its part unless the command is taken.
    static bool Command(KnownWindow& window, WPARAM command) {
        const bool passed = HandleSysCommand(window.tracked, command, 0);
        if (passed) SendMessageA(window.get(), WM_SYSCOMMAND, command, 0);
        return passed;
    }

    const RECT spanning = {bounds.left - 4, bounds.top - 4, bounds.right + 4, bounds.bottom + 4};
    const RECT place = Shifted({0, 0, 500, 350}, displays[1].workArea.left + 60, displays[1].workArea.top + 50);
};

TEST_F(MaximiseAcrossTest, GoesByTheSettingAndTheControlKey) {
    struct Case {
        const char* what;
        DWORD setting;
        bool control;
        WPARAM command;
        bool spans;
    };
    constexpr Case Cases[] = {
        {"off", 0, false, SC_MAXIMIZE, false},
        {"off, with Control", 0, true, SC_MAXIMIZE, false},
        {"with Control only, up", 1, false, SC_MAXIMIZE, false},
        {"with Control only, down", 1, true, SC_MAXIMIZE, true},
        {"always", 2, false, SC_MAXIMIZE, true},
        {"always, with Control", 2, true, SC_MAXIMIZE, true},
        {"double-click on the caption", 2, false, SC_MAXIMIZE | HTCAPTION, true},
        {"all low bits", 2, false, SC_MAXIMIZE | 0xF, true},
        {"unknown setting", 3, true, SC_MAXIMIZE, false},
        {"absurd setting", 0xFFFFFFFF, true, SC_MAXIMIZE, false},
        {"restore", 2, true, SC_RESTORE, false},
        {"another command", 2, true, SC_MAXIMIZE + 0x10, false},
    };
    for (const Case& test : Cases) {
        SCOPED_TRACE(test.what);
        KnownWindow window(Form());
        settings.SetCtrlMax(test.setting);
        HoldControl(test.control);
        // A command that isn't taken goes on to the program.
        EXPECT_EQ(!test.spans, HandleSysCommand(window.tracked, test.command, 0));
        EXPECT_EQ(test.spans, Spans(window)) << window.Place();
        EXPECT_EQ(test.spans ? spanning : place, window.Place());
        EXPECT_EQ(test.spans, IsZoomed(window.get()) != FALSE);
    }
}

// How the window stands before, and that it comes back to its normal place from each state.
TEST_F(MaximiseAcrossTest, SpansFromEachStateAndComesBack) {
    settings.SetCtrlMax(2);
    struct Case {
        const char* what;
        int show;
        DWORD style;
    };
    constexpr Case Cases[] = {
        {"normal", SW_SHOWNORMAL, WS_OVERLAPPEDWINDOW},
        {"maximised", SW_SHOWMAXIMIZED, WS_OVERLAPPEDWINDOW},
        {"minimised", SW_SHOWMINIMIZED, WS_OVERLAPPEDWINDOW},
        {"hidden", SW_HIDE, WS_OVERLAPPEDWINDOW},
        {"without a thick frame", SW_SHOWNORMAL, WS_CAPTION | WS_SYSMENU | WS_MAXIMIZEBOX},
    };
    for (const Case& test : Cases) {
        SCOPED_TRACE(test.what);
        KnownWindow window(WindowForm{.style = test.style, .place = place});
        ShowWindow(window.get(), test.show);
        EXPECT_FALSE(Command(window, SC_MAXIMIZE));
        EXPECT_TRUE(Spans(window)) << window.Place();
        EXPECT_FALSE(IsIconic(window.get()));
        EXPECT_EQ(place, window.tracked.savedNormalRect);
        SetWindowPos(window.get(), nullptr, 5, 5, 300, 200, SWP_NOZORDER);
        EXPECT_FALSE(Command(window, SC_MAXIMIZE)) << "dropped while it spans";
        EXPECT_EQ((RECT{5, 5, 305, 205}), window.Place());

        EXPECT_TRUE(Command(window, SC_RESTORE | 2));
        EXPECT_FALSE(window.tracked.maximisedAcross);
        EXPECT_FALSE(IsZoomed(window.get()));
        EXPECT_EQ(place, window.Place());
        // And the next time as the first.
        EXPECT_FALSE(Command(window, SC_MAXIMIZE));
        EXPECT_TRUE(Spans(window));
    }
}

TEST_F(MaximiseAcrossTest, LetsTheCommandThroughOnceTheSettingIsOff) {
    settings.SetCtrlMax(2);
    KnownWindow window(Form());
    Command(window, SC_MAXIMIZE);
    settings.SetCtrlMax(0);
    EXPECT_TRUE(HandleSysCommand(window.tracked, SC_MAXIMIZE, 0));
    EXPECT_TRUE(window.tracked.maximisedAcross);
    EXPECT_TRUE(Command(window, SC_RESTORE)) << "restoring works with any setting";
    EXPECT_EQ(place, window.Place());
    EXPECT_TRUE(Command(window, SC_MAXIMIZE));
    EXPECT_FALSE(window.tracked.maximisedAcross);
    EXPECT_TRUE(IsZoomed(window.get()));
}

TEST_F(MaximiseAcrossTest, AsksTheProgramForNoLimit) {
    settings.SetCtrlMax(2);
    KnownWindow window(Form());
    bool asked = false;
    DWORD paintedStyle = 0;
    window.handler = [&](UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
        if (message == WM_GETMINMAXINFO) {
            reinterpret_cast<MINMAXINFO*>(lParam)->ptMaxTrackSize = {700, 500};
            return 0;
        }
        if (message == WM_WINDOWPOSCHANGING) asked = true;
        if (message == WM_NCPAINT) paintedStyle = window.Style();
        return std::nullopt;
    };
    MaximiseAcross(window.tracked, &place);
    EXPECT_TRUE(Spans(window)) << window.Place();
    EXPECT_FALSE(asked);
    EXPECT_TRUE(paintedStyle & WS_MAXIMIZE) << "the frame is painted in its new state at the end";
}

TEST_F(MaximiseAcrossTest, TakesThePlaceFromThePlacementForWantOfAnother) {
    KnownWindow window(Form());
    MaximiseAcross(window.tracked, nullptr);
    EXPECT_TRUE(Spans(window));
    EXPECT_EQ(place, window.tracked.savedNormalRect);
    const RECT given = Shifted(place, -30, 20);
    KnownWindow other(Form());
    MaximiseAcross(other.tracked, &given);
    EXPECT_EQ(given, other.tracked.savedNormalRect);
    EXPECT_TRUE(Command(other, SC_RESTORE));
    EXPECT_EQ(given, other.Place());
}

// The program whose style stays without WS_MAXIMIZE.
TEST_F(MaximiseAcrossTest, KeepsTheStyleOfAcad) {
    profile.program.acad = true;
    settings.SetCtrlMax(2);
    for (const int show : {SW_SHOWNORMAL, SW_SHOWMAXIMIZED, SW_SHOWMINIMIZED}) {
        SCOPED_TRACE(show);
        KnownWindow window(Form());
        ShowWindow(window.get(), show);
        EXPECT_FALSE(Command(window, SC_MAXIMIZE));
        EXPECT_TRUE(Spans(window)) << window.Place();
        EXPECT_EQ(0u, window.Style() & (WS_MINIMIZE | WS_MAXIMIZE));
        RefreshAfterDisplayChange(window.tracked);
        EXPECT_EQ(0u, window.Style() & (WS_MINIMIZE | WS_MAXIMIZE));
        EXPECT_TRUE(Spans(window)) << window.Place();
        EXPECT_TRUE(Command(window, SC_RESTORE));
        EXPECT_EQ(place, window.Place());
    }
}

TEST_F(MaximiseAcrossTest, FollowsTheDisplays) {
    settings.SetCtrlMax(2);
    KnownWindow window(Form());
    KnownWindow ordinary(Form());
    Command(window, SC_MAXIMIZE);
    const RECT& only = displays[0].workArea;
    PretendDisplays(1);
    RefreshAfterDisplayChange(ordinary.tracked);
    EXPECT_EQ(only, WorkBounds());
    EXPECT_EQ(place, ordinary.Place());
    EXPECT_FALSE(ordinary.tracked.maximisedAcross);

    RefreshAfterDisplayChange(window.tracked);
    EXPECT_EQ((RECT{only.left - 4, only.top - 4, only.right + 4, only.bottom + 4}), window.Place());
    EXPECT_TRUE(IsZoomed(window.get()));
    EXPECT_EQ(place, window.tracked.savedNormalRect);

    PretendDisplays(static_cast<unsigned>(displays.size()));
    RefreshAfterDisplayChange(window.tracked);
    RefreshAfterDisplayChange(window.tracked);
    EXPECT_TRUE(Spans(window)) << window.Place();
    EXPECT_TRUE(Command(window, SC_RESTORE));
    EXPECT_EQ(place, window.Place());
}

TEST_F(MaximiseAcrossTest, ComesBackWithinReachWhenItsDisplayHasGone) {
    KnownWindow window(Form());
    const RECT gone = {30000, 20000, 30500, 20350};
    MaximiseAcross(window.tracked, &gone);
    EXPECT_TRUE(Command(window, SC_RESTORE));
    const RECT& last = displays.back().workArea;
    EXPECT_EQ((RECT{last.right - 500, last.bottom - 350, last.right, last.bottom}), window.Place());
}

TEST_F(MaximiseAcrossTest, OutlivesItsWindow) {
    settings.SetCtrlMax(2);
    KnownWindow window(Form());
    TrackedWindow orphan = window.tracked;
    DestroyWindow(window.get());
    EXPECT_FALSE(HandleSysCommand(orphan, SC_MAXIMIZE, 0));
    RefreshAfterDisplayChange(orphan);
    EXPECT_TRUE(HandleSysCommand(orphan, SC_RESTORE, 0));
    EXPECT_FALSE(orphan.maximisedAcross);
}

}  // namespace
}  // namespace halyard::test
