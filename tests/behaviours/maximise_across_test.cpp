#include "behaviours/maximise_across.h"

#include "behaviours/inprocess_fixture.h"
#include "hook/behaviours.h"

namespace halyard::test {
namespace {

class MaximiseAcrossTest : public BehaviourTest {
protected:
    MaximiseAcrossTest() { settings.SetCtrlMax(2); }

    WindowForm Form() const { return {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE, .place = place}; }

    bool Spans(const KnownWindow& window) const { return window.tracked.maximisedAcross && window.Place() == spanning; }

    // The command as it comes from the queue; the system has its part unless the command is taken.
    static bool Command(KnownWindow& window, WPARAM command) {
        const bool taken = HandleSysCommand(window.tracked, command, 0);
        if (!taken) SendMessageA(window.get(), WM_SYSCOMMAND, command, 0);
        return !taken;
    }

    const RECT spanning = {bounds.left - 4, bounds.top - 4, bounds.right + 4, bounds.bottom + 4};
    const RECT place = Shifted({0, 0, 500, 350}, displays[1].workArea.left + 60, displays[1].workArea.top + 50);
};

// How the window stands before, and that it comes back to its normal place from each state.
TEST_F(MaximiseAcrossTest, SpansFromEachStateAndComesBack) {
    for (const bool acad : {false, true})
        for (const int show : {SW_SHOWNORMAL, SW_SHOWMAXIMIZED, SW_SHOWMINIMIZED, SW_HIDE}) {
            SCOPED_TRACE(testing::Message() << show << (acad ? " in acad" : ""));
            profile.program.acad = acad;
            KnownWindow window(Form());
            ShowWindow(window.get(), show);
            EXPECT_FALSE(Command(window, SC_MAXIMIZE));
            EXPECT_TRUE(Spans(window)) << window.Place();
            EXPECT_EQ(acad ? 0u : DWORD{WS_MAXIMIZE}, window.Style() & (WS_MINIMIZE | WS_MAXIMIZE));
            EXPECT_EQ(place, window.tracked.savedNormalRect);
            SetWindowPos(window.get(), nullptr, 5, 5, 300, 200, SWP_NOZORDER);
            EXPECT_FALSE(Command(window, SC_MAXIMIZE)) << "dropped while it spans";
            EXPECT_EQ((RECT{5, 5, 305, 205}), window.Place());
            settings.SetCtrlMax(3);  // no known one
            EXPECT_FALSE(HandleSysCommand(window.tracked, SC_MAXIMIZE, 0)) << "let through without the setting";
            EXPECT_TRUE(Command(window, SC_RESTORE | 2));
            settings.SetCtrlMax(2);
            EXPECT_FALSE(window.tracked.maximisedAcross);
            EXPECT_FALSE(IsZoomed(window.get()));
            EXPECT_EQ(place, window.Place());
        }
}

TEST_F(MaximiseAcrossTest, AsksTheProgramForNoLimit) {
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

TEST_F(MaximiseAcrossTest, OutlivesItsWindow) {
    KnownWindow window(Form());
    TrackedWindow orphan = window.tracked;
    DestroyWindow(window.get());
    EXPECT_TRUE(HandleSysCommand(orphan, SC_MAXIMIZE, 0));
    RefreshAfterDisplayChange(orphan);
    EXPECT_FALSE(HandleSysCommand(orphan, SC_RESTORE, 0));
    EXPECT_FALSE(orphan.maximisedAcross);
}

}  // namespace
}  // namespace halyard::test
