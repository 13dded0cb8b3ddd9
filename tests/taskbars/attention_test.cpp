// Windows that ask for the user's attention.
#include "taskbars/taskbar_fixture.h"
#include "taskbars/toolbar_reader.h"

#include <commctrl.h>

namespace halyard::test {

namespace {

class AttentionTest : public TaskbarTest {
protected:
    static bool IsMarked(const std::string& title) {
        const HWND toolbar = FindWindowExA(BarOn(2), nullptr, "ToolbarWindow32", nullptr);
        for (const ToolbarButton& button : ReadToolbar(toolbar))
            if (button.text == title) return Ask(toolbar, TB_GETSTATE, button.command) & TBSTATE_MARKED;
        return false;
    }
    static testing::AssertionResult GetsItByClick(HWND window) {
        Click(ButtonPlace(2, "Asking"));
        if (!Eventually([=] { return GetForegroundWindow() == window && IsWindowVisible(window); }))
            return testing::AssertionFailure() << "in front: " << Describe(GetForegroundWindow());
        if (!Eventually([] { return !IsMarked("Asking"); })) return testing::AssertionFailure() << "still marked";
        return testing::AssertionSuccess();
    }
};

TEST_F(AttentionTest, ButtonsFlashUntilTheirWindowHasIt) {
    Set("TaskbarsShowAllTasks", 1);
    StartAll();
    const Sample asking = OpenAt("Asking", {1200, 100});
    OpenAt("Front", {1400, 300});
    ASSERT_TRUE(WindowsBecome(0, 2));
    EXPECT_FALSE(IsMarked("Asking"));
    // As the shell tells it.
    PostMessageA(BarOn(2), RegisterWindowMessageA("SHELLHOOK"), HSHELL_FLASH, reinterpret_cast<LPARAM>(asking.window));
    EXPECT_TRUE(Eventually([] { return IsMarked("Asking"); }));
    EXPECT_TRUE(GetsItByClick(asking.window));

    // On a hidden desktop: its button comes to the bars, and the wish lasts.
    Assign(asking.window, 1);
    ASSERT_TRUE(Shows(2, {"*Front"}));
    Ask(asking.window, sample::AskAttention);
    EXPECT_TRUE(Eventually([] { return IsMarked("Asking"); }));
    EXPECT_FALSE(IsWindowVisible(asking.window));
    EXPECT_TRUE(GetsItByClick(asking.window));
    EXPECT_EQ(Status("current desktop"), "1");
    Switch(0);
    EXPECT_TRUE(Eventually([&] { return !IsWindowVisible(asking.window) && !IsMarked("Asking"); }));
}

}  // namespace

}  // namespace halyard::test
