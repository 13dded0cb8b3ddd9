// The bars beside a shell that is missing, hung, killed, or of another kind; and their end.
#include "shell/record.h"
#include "taskbars/taskbar_fixture.h"

namespace halyard::test {

namespace {

using ShellTest = TaskbarTest;

constexpr POINT OnSecond = {1200, 100};

TEST_F(ShellTest, ARestartedShellLearnsOfABarAndIsHookedAgain) {
    const Sample one = OpenAt("One", OnSecond);
    StartAll();
    ASSERT_TRUE(PrimaryShows({}));
    tray.Kill();
    EXPECT_TRUE(Shows(2, {"One"}));
    WriteText(standin::StandInKey, standin::BarValue, "");
    tray.Start(children);
    EXPECT_TRUE(IsTold("3 edge 3 at 1024,740,2048,770"));
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

    // It tells the bar of programs that fill the screen.
    SetWindowPos(one.window, HWND_TOP, 1024, 0, 1024, 768, 0);
    for (const bool full : {true, false}) {
        tray.SayThatScreenIsFull(full);
        const auto front = [] { return GetAncestor(WindowFromPoint({1900, 755}), GA_ROOT); };
        EXPECT_TRUE(Eventually([&] { return front() == (full ? one.window : BarOn(2)); })) << Describe(front());
    }
}

TEST_F(ShellTest, AMissingOrHungShellCostsOneWait) {
    Set("TaskbarsShowAllTasks", 1);
    OpenAt("Many", OnSecond, "--count 12");
    const auto hasAll = [] { return ButtonsOn(2).size() == 12; };
    StartLoader();
    EXPECT_TRUE(Eventually(hasAll)) << "without a shell";
    EXPECT_EQ(AskServer(1192, 0x1234, 0), 0);
    // Nobody's taskbar.
    EXPECT_EQ(AskServer(1193, 0, 0x12345678), 0);
    tray.Start(children);
    Loader("--disable");
    WriteText(standin::StandInKey, standin::BarValue, "");
    tray.Hang(8000);
    Loader("--enable");
    EXPECT_TRUE(Eventually(hasAll)) << ButtonsOn(2).size();
    EXPECT_EQ(Told(), "") << "the windows are there before the shell answers again";
    EXPECT_TRUE(IsTold("3 edge 3 at 1024,740,2048,770"));
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

TEST_F(ShellTest, AllWindowsComeBackWhetherTheServerEndsOrIsKilled) {
    tray.Start(children);
    const Sample one = OpenAt("One", OnSecond);
    OpenAt("Two", {1400, 300});
    OpenAt("First", {100, 100});
    StartLoader("--no-guard");
    const auto areBack = [&] { return tray.TabWindows().size() == 3; };
    ASSERT_TRUE(PrimaryShows({"First"}));
    Loader("--disable");
    EXPECT_TRUE(BarBecomes(2, {}));
    EXPECT_TRUE(Eventually(areBack)) << tray.TabWindows().size();
    Loader("--enable");
    EXPECT_TRUE(PrimaryShows({"First"}));
    loader->Kill();
    Set("TaskbarsEnable", 0);
    StartLoader();
    EXPECT_TRUE(Eventually(areBack)) << tray.TabWindows().size();
    EXPECT_TRUE(BringToFront(one.window));
    EXPECT_TRUE(Eventually([&] { return tray.Marked() == one.window; }));
}

// In a session that answers as that system; the shell's list is of the older kind, and a separator stands after each
// button of a bar.
TEST_F(ShellTest, Windows2000) {
    Set("TaskbarsShowAllTasks", 1);
    tray.Start(children, "--tabs");
    OpenAt("A", OnSecond);
    const Sample second = OpenAt("B", OnSecond);
    OpenAt("C", OnSecond);
    ASSERT_TRUE(PrimaryShows({"A", "B", "C"}));
    StartLoader();
    EXPECT_TRUE(Shows(2, {"A", "|", "B", "|", "C", "|"}));
    EXPECT_FALSE(GetWindowLongA(BarOn(2), GWL_STYLE) & WS_BORDER);
    OpenAt("D", OnSecond);
    second.program->Kill();
    EXPECT_TRUE(Shows(2, {"A", "|", "C", "|", "*D", "|"}));
    // Every second pixel of the marked one is white.
    const auto white = [](const char* title) { return Share(2, title, RGB(255, 255, 255)); };
    EXPECT_TRUE(Eventually([&] { return white("D") >= 400 && white("D") <= 500; })) << white("D");
    EXPECT_LT(white("A"), 100);
}

}  // namespace

}  // namespace halyard::test
