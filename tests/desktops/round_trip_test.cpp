// A desktop that is left and found again is as it was.
#include "support/desktop_fixture.h"
#include "support/input.h"
#include "support/picture.h"

#include <random>
#include <vector>

namespace halyard::test {

namespace {

constexpr int Trips = 6;
constexpr RECT BothDisplays = {0, 0, 2048, 768};

// Ctrl and Alt with a letter for the action.
void BindHotkey(const char* action, char key) {
    const std::string keys = std::string(published::ProductKey) + "\\HotKeys";
    Store(keys, action, REG_BINARY, std::string("\1\1\0\0", 4) + key + std::string(3, 0));
}

class RoundTripTest : public DesktopTest {
protected:
    // Of six programs: one with three windows, an owner with a modal dialog, a topmost, a maximised and a minimised
    // one.
    void OpenWindows() {
        OpenSample("Several", "--count 3 --at 60,60,420,300");
        const Sample owner = OpenSample("Owner", "--at 300,200,420,300");
        OpenPopup(owner, true);
        EnableWindow(owner.window, FALSE);
        const HWND topmost = OpenSample("Topmost", "--at 500,80,300,200").window;
        SetWindowPos(topmost, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
        Ask(OpenSample("Maximised", "--at 1100,80,300,200").window, sample::ShowAs, SW_SHOWMAXIMIZED);
        Ask(OpenSample("Minimised", "--at 200,400,300,200").window, sample::ShowAs, SW_MINIMIZE);
        OpenSample("Plain", "--at 420,340,380,260");
        OpenNotepad();
        ASSERT_TRUE(WindowsBecome(0, 9));
    }
    // All that the user can tell one moment from another by, but for the picture.
    static std::string State() {
        std::string text;
        for (HWND window : SeenWindows())
            text += Describe(window) + (IsIconic(window) ? " minimised" : "") + (IsZoomed(window) ? " maximised" : "") +
                    (IsWindowEnabled(window) ? "" : " disabled") + (IsTopmost(window) ? " topmost" : "") +
                    (GetForegroundWindow() == window ? " in front\n" : "\n");
        return text;
    }
    // As a user does, who clicks a window.
    void Raise(HWND window) {
        SetForegroundWindow(window);
        SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
        EXPECT_TRUE(BecomesFront(window)) << Describe(window);
    }
    // Whether a key reaches the window's program. Of Notepad nobody can tell.
    static bool KeyReaches(HWND window) {
        const HWND owner = GetWindow(window, GW_OWNER), frame = owner ? owner : window;
        const LRESULT before = Ask(frame, sample::CountMessage, WM_KEYUP);
        TapKey("x");
        return Eventually([&] { return Ask(frame, sample::CountMessage, WM_KEYUP) > before; }, 3000) ||
               Describe(window).find("Notepad") != std::string::npos;
    }
    // The keeper goes down when the order has been put right.
    static bool IsSettled() {
        return Eventually([] {
            const HWND keeper = FindWindowA("TevralHalyardKeeperWndClass", nullptr);
            return !IsTopmost(keeper) || !IsWindowVisible(keeper);
        });
    }
};

TEST_F(RoundTripTest, ComesBackInItsOrderWithItsFrontByHotkey) {
    BindHotkey("4", 'N');
    BindHotkey("5", 'P');
    StartLoader();
    OpenWindows();
    std::mt19937 random(5);
    for (int trip = 0; trip < Trips; ++trip) {
        SCOPED_TRACE("trip " + std::to_string(trip));
        for (int raised = 0; raised < 3; ++raised) {
            const std::vector<HWND> windows = SeenWindows();
            HWND window = windows[random() % windows.size()];
            if (IsWindowEnabled(window) && !IsIconic(window)) Raise(window);
        }
        HWND front = GetForegroundWindow();
        ASSERT_TRUE(BringToFront(front));
        const std::string before = State();
        const auto picture = PixelsOf(BothDisplays);
        TapKey("ctrl+alt+n");
        ASSERT_TRUE(Eventually([] { return SeenWindows().empty(); }));
        TapKey("ctrl+alt+p");
        EXPECT_TRUE(IsSettled());
        EXPECT_EQ(State(), before);
        EXPECT_TRUE(Eventually([&] { return PixelsOf(BothDisplays) == picture; }, 1000)) << "another picture";
        EXPECT_TRUE(KeyReaches(front)) << Describe(front);
    }
}

using ElsewhereTest = DesktopTest;

TEST_F(ElsewhereTest, WindowsComeOrTheirDesktopDoesWhenTheyAreActivated) {
    for (DWORD answer = 0; answer <= 2; ++answer) {
        SCOPED_TRACE("answer " + std::to_string(answer));
        WriteNumber(published::ProductKey, "HiddenActivation", answer);
        const Sample called = StartWithSample("Called");
        Switch(1);
        ASSERT_TRUE(BecomesHidden(called.window));
        const Sample here = OpenSample("Here");
        ASSERT_TRUE(WindowsBecome(1, 1));
        ASSERT_TRUE(BringToFront(here.window));

        Ask(called.window, sample::ShowAs, SW_SHOWNA);
        EXPECT_TRUE(BecomesHidden(called.window)) << "shown by its own program";
        EXPECT_EQ(GetForegroundWindow(), here.window);
        SetForegroundWindow(called.window);
        ShowWindowAsync(called.window, SW_RESTORE);
        EXPECT_TRUE(answer == 2 ? BecomesHidden(called.window) : BecomesVisible(called.window));
        EXPECT_TRUE(BecomesFront(answer == 2 ? here.window : called.window));
        EXPECT_TRUE(answer == 0 ? BecomesHidden(here.window) : StaysVisible(here.window));
        EXPECT_EQ(Status("current desktop"), answer == 0 ? "0" : "1");
        QuitLoader();
        children.EndAll();
    }
}

TEST_F(ElsewhereTest, ModalDialogsAndTheirOwnersAreNeverApart) {
    StartLoader();
    const Sample owner = OpenSample("Owner");
    const Sample other = OpenSample("Other");
    ASSERT_TRUE(WindowsBecome(0, 2));
    ASSERT_TRUE(BringToFront(owner.window));
    Switch(1);
    ASSERT_TRUE(BecomesHidden(owner.window));
    EnableWindow(owner.window, FALSE);
    const HWND late = OpenPopup(owner, true);
    EXPECT_TRUE(BecomesHidden(late));
    Switch(0);
    EXPECT_TRUE(BecomesVisible(late));
    EXPECT_TRUE(BecomesFront(late));
    Assign(late, 2);
    Assign(owner.window, 2);
    EXPECT_TRUE(BecomesHidden(late));
    EXPECT_TRUE(BecomesFront(other.window)) << "the next";
    // On a desktop without windows some window of the system has the keyboard.
    PostMessageA(other.window, WM_CLOSE, 0, 0);
    EXPECT_TRUE(Eventually([] { return Describe(GetForegroundWindow()).find("KeeperWnd") != std::string::npos; }));
    Switch(2);
    EXPECT_TRUE(BecomesFront(late));
}

}  // namespace

}  // namespace halyard::test
