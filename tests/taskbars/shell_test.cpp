// The bars beside a shell that is missing, hung, killed, or of another kind; and their end.
#include "taskbars/taskbar_fixture.h"
#include "taskbars/toolbar_reader.h"

namespace halyard::test {

namespace {

using ShellTest = TaskbarTest;

constexpr POINT OnSecond = {1200, 100};

TEST_F(ShellTest, ARestartedShellIsHookedAgain) {
    const Sample one = OpenAt("One", OnSecond);
    StartAll();
    ASSERT_TRUE(PrimaryShows({}));
    tray.Kill();
    EXPECT_TRUE(Shows(2, {"One"}));
    tray.Start(children);
    // It may list what it finds, until the windows are looked through again.
    OpenAt("Two", {1400, 200});
    EXPECT_TRUE(Shows(2, {"One", "*Two"}));
    PostMessageA(Server(), 1190, 0, 0);
    EXPECT_TRUE(PrimaryShows({}));
    // The events of windows that have a bar are kept from it: the last one comes after all of them.
    EXPECT_TRUE(BringToFront(one.window));
    EXPECT_TRUE(Shows(2, {"*One", "Two"}));
    OpenAt("First", {100, 100});
    EXPECT_TRUE(PrimaryShows({"First"}));
}

TEST_F(ShellTest, AHungShellCostsOneWait) {
    Set("TaskbarsShowAllTasks", 1);
    for (const char* title : {"A", "B", "C", "D"})
        OpenAt(title, OnSecond);
    tray.Start(children);
    ASSERT_TRUE(PrimaryShows({"A", "B", "C", "D"}) || tray.TabWindows().size() == 4);
    StartLoader();
    ASSERT_TRUE(Eventually([] { return ButtonsOn(2).size() == 4; }));
    Loader("--disable");
    tray.Hang(60000);
    const DWORD start = GetTickCount();
    Loader("--enable");
    EXPECT_TRUE(Eventually([] { return ButtonsOn(2).size() == 4; }, 15000)) << ButtonsOn(2).size();
    EXPECT_LT(GetTickCount() - start, 12000U);
    tray.Kill();
}

TEST_F(ShellTest, WhatAHungShellMissedIsMadeUpFor) {
    StartAll();
    const Sample moved = OpenAt("Moved", {100, 100});
    ASSERT_TRUE(PrimaryShows({"Moved"}));
    tray.Hang(3000);
    SetWindowPos(moved.window, nullptr, OnSecond.x, OnSecond.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_TRUE(Eventually([] { return ButtonsOn(2).size() == 1; }, 2500)) << "it waits for the shell";
    EXPECT_TRUE(PrimaryShows({"Moved"}));
    const auto madeUp = [&] {
        PostMessageA(Server(), WM_TIMER, 1, 0);  // which comes by itself every half minute
        return tray.TabWindows().empty();
    };
    EXPECT_TRUE(Eventually(madeUp, 20000));
}

TEST_F(ShellTest, WithoutAShellThereAreBarsAllTheSame) {
    Set("TaskbarsShowAllTasks", 1);
    OpenAt("One", OnSecond);
    StartLoader();
    EXPECT_TRUE(Shows(2, {"One"}));
    EXPECT_EQ(AskServer(1192, 0x1234, 0), 0);
    // Nobody's taskbar.
    EXPECT_EQ(AskServer(1193, 0, 0x12345678), 0);
    EXPECT_TRUE(Shows(2, {"One"}));
}

TEST_F(ShellTest, TheEndGivesAllWindowsBack) {
    const Sample one = OpenAt("One", OnSecond);
    OpenAt("Two", {1400, 300});
    OpenAt("First", {100, 100});
    StartAll();
    ASSERT_TRUE(PrimaryShows({"First"}));
    Loader("--disable");
    EXPECT_TRUE(LosesBar(2));
    EXPECT_TRUE(Eventually([&] { return tray.TabWindows().size() == 3; })) << tray.TabWindows().size();
    Loader("--enable");
    EXPECT_TRUE(PrimaryShows({"First"}));
    QuitLoader();
    EXPECT_TRUE(Eventually([&] { return tray.TabWindows().size() == 3; })) << tray.TabWindows().size();
    EXPECT_TRUE(BringToFront(one.window));
    EXPECT_TRUE(Eventually([&] { return tray.Marked() == one.window; }));
}

// In a session that answers as that system; the shell's list is of the older kind.
TEST_F(ShellTest, Windows2000) {
    Set("TaskbarsShowAllTasks", 1);
    tray.Start(children, "--tabs");
    for (const char* title : {"A", "B", "C"})
        OpenAt(title, OnSecond);
    ASSERT_TRUE(PrimaryShows({"A", "B", "C"}));
    StartLoader();
    EXPECT_TRUE(Shows(2, {"A", "B", "C"}));
    const auto entries = ReadToolbar(FindWindowExA(BarOn(2), nullptr, "ToolbarWindow32", nullptr));
    ASSERT_EQ(entries.size(), 6U);
    for (std::size_t index = 0; index < entries.size(); index += 2) {
        EXPECT_FALSE(entries[index].separator) << index;
        EXPECT_TRUE(entries[index + 1].separator) << index;
        EXPECT_EQ(entries[index + 1].command & 0xFFFF, entries[index].command | 0x8000) << index;
    }
    EXPECT_FALSE(GetWindowLongA(BarOn(2), GWL_STYLE) & WS_BORDER);
    OpenAt("D", OnSecond);
    EXPECT_TRUE(Shows(2, {"A", "B", "C", "*D"}));
}

}  // namespace

}  // namespace halyard::test
