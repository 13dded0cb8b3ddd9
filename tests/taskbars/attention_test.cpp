// Windows that ask for the user's attention.
#include "taskbars/taskbar_fixture.h"

namespace halyard::test {

namespace {

using AttentionTest = TaskbarTest;

TEST_F(AttentionTest, ButtonsFlashUntilTheirWindowHasIt) {
    Set("TaskbarsShowAllTasks", 1);
    StartAll();
    const Sample asking = OpenAt("Asking", {1200, 100});
    OpenAt("Front", {1400, 300});
    ASSERT_TRUE(Shows(2, {"Asking", "*Front"}));
    // As the shell tells it.
    PostMessageA(BarOn(2), RegisterWindowMessageA("SHELLHOOK"), HSHELL_FLASH, reinterpret_cast<LPARAM>(asking.window));
    EXPECT_TRUE(Shows(2, {"!Asking", "*Front"}));
    Click(ButtonPlace(2, "Asking"));
    EXPECT_TRUE(Shows(2, {"*Asking", "Front"}));

    // On a hidden desktop: its button comes to the bars, and the wish lasts.
    Assign(asking.window, 1);
    ASSERT_TRUE(Shows(2, {"*Front"}));
    Ask(asking.window, sample::AskAttention);
    EXPECT_TRUE(Shows(2, {"*Front", "!Asking"}));
    EXPECT_FALSE(IsWindowVisible(asking.window));
    Click(ButtonPlace(2, "Asking"));
    EXPECT_TRUE(Shows(2, {"*Asking"}));
    EXPECT_EQ(Status("current desktop"), "1");
    EXPECT_EQ(GetForegroundWindow(), asking.window);
    Switch(0);
    EXPECT_TRUE(Shows(2, {"*Front"}));

    // Whoever comes by another road has answered it too.
    Ask(asking.window, sample::AskAttention);
    EXPECT_TRUE(Shows(2, {"*Front", "!Asking"}));
    Switch(1);
    EXPECT_TRUE(BringToFront(asking.window));
    Switch(0);
    EXPECT_TRUE(Shows(2, {"*Front"}));
}

}  // namespace

}  // namespace halyard::test
