// Which windows are on which bar, and what their buttons do.
#include "resources/resource_ids.h"
#include "taskbars/taskbar_fixture.h"

namespace halyard::test {

namespace {

using TaskListTest = TaskbarTest;

constexpr POINT OnFirst = {100, 100};
constexpr POINT OnSecond = {1200, 100};

HWND SheetWindow() {
    return FindWindowA(nullptr, "Tevral Ombrel Windows Manager");
}

void MoveWindowTo(HWND window, POINT place) {
    SetWindowPos(window, nullptr, place.x, place.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

TEST_F(TaskListTest, WindowsAreOnTheBarOfTheirDisplayAndDesktopAlone) {
    const Sample early = OpenAt("Early", OnSecond);
    StartAll();
    EXPECT_TRUE(Shows(2, {"Early"}));
    const Sample other = OpenNotepad();
    MoveWindowTo(other.window, OnSecond);
    EXPECT_TRUE(Shows(2, {"Early", "*Untitled - Notepad"}));
    const Sample first = OpenAt("First", OnFirst);
    EXPECT_TRUE(Shows(2, {"Early", "Untitled - Notepad"}));
    EXPECT_TRUE(PrimaryShows({"First"}));
    MoveWindowTo(early.window, OnFirst);
    SetWindowTextW(other.window, L"\u041F\u0440\u0438 \u03A9 \u0639 \u6587 \U0001F642");
    const std::string renamed = "\u041F\u0440\u0438 \u03A9 \u0639 \u6587 \U0001F642";
    EXPECT_TRUE(Shows(2, {renamed}));
    EXPECT_TRUE(PrimaryShows({"First", "Early"}));
    MoveWindowTo(first.window, {1400, 300});
    EXPECT_TRUE(Shows(2, {renamed, "*First"}));
    EXPECT_TRUE(PrimaryShows({"Early"}));

    SetWindowTextA(other.window, "");
    EXPECT_TRUE(BringToFront(other.window));
    EXPECT_TRUE(Shows(2, {"*" + renamed, "First"}));

    const auto hasOnly = [](const std::string& title) {
        return Eventually([&] {
            const Titles titles = ButtonsOn(2);
            return titles.size() == 1 && (titles[0] == title || titles[0] == "*" + title);
        });
    };
    ASSERT_TRUE(WindowsBecome(0, 3)) << "an unknown window would only be noted";
    Assign(other.window, 1);
    EXPECT_TRUE(hasOnly("First"));
    Switch(1);
    EXPECT_TRUE(hasOnly(""));
    Switch(0);
    EXPECT_TRUE(hasOnly("First"));

    // A maximised window counts where it goes back to; an owned one doesn't count.
    ShowWindow(first.window, SW_MAXIMIZE);
    OpenPopup(first, true);
    EXPECT_TRUE(hasOnly("First"));
    first.program->Kill();
    EXPECT_TRUE(Shows(2, {}));
}

TEST_F(TaskListTest, WindowsWithoutRoomAreInAMenu) {
    StartAll();
    const Sample many = OpenAt("Many", OnSecond, "--count 40");
    ASSERT_TRUE(Eventually([] { return ButtonsOn(2).size() == 40; })) << ButtonsOn(2).size();
    const auto more = [] { return FindWindowExA(BarOn(2), nullptr, "Button", nullptr); };
    ASSERT_TRUE(Eventually([&] { return more() && IsWindowVisible(more()); }));
    const RECT place = PlaceOf(more());
    Click({(place.left + place.right) / 2, (place.top + place.bottom) / 2});
    ASSERT_TRUE(Eventually([] { return FindWindowA("#32768", nullptr) != nullptr; }));
    TapKey("Up Return");
    const HWND last = WindowOf(many.program->Id(), "Many 40");
    EXPECT_TRUE(Eventually([&] { return GetForegroundWindow() == last; })) << Describe(GetForegroundWindow());
    many.program->Kill();
    EXPECT_TRUE(Eventually([&] { return ButtonsOn(2).empty() && !more(); }));
}

TEST_F(TaskListTest, AllTasksAreOnAllBarsInTheOrderOfThePrimaryOneUntilTheSheetSaysOtherwise) {
    Set("TaskbarsShowAllTasks", 1);
    // No other hook reads the settings in a shell whose program is kept out.
    WriteNumber(ProgramKey(BinFolder() + "standin_tray.exe"), "Excluded", 1);
    ASSERT_TRUE(Arrange(ThreeInARow()));
    tray.Start(children);
    OpenAt("A", OnFirst);
    const Sample second = OpenAt("B", {1100, 200});
    const Sample last = OpenAt("C", {200, 200});
    EXPECT_TRUE(PrimaryShows({"A", "B", "C"}));
    StartLoader();
    const std::vector<unsigned> bars = DisplaysWithBars();
    ASSERT_EQ(bars.size(), 2U);
    for (const unsigned display : bars)
        EXPECT_TRUE(Shows(display, {"A", "B", "C"})) << display;
    SetWindowTextA(OpenAt("New", OnFirst).window, "D");
    for (const unsigned display : bars)
        EXPECT_TRUE(Shows(display, {"A", "B", "C", "*D"})) << display;

    // To each its own, which the shell's hook must know as well: it keeps an active window from the primary bar.
    const auto choose = [&](int radioButton) {
        Choose(bars[0], 6);  // its properties
        const auto button = [&] {
            return GetDlgItem(FindWindowExA(SheetWindow(), nullptr, "#32770", nullptr), radioButton);
        };
        ASSERT_TRUE(Eventually([&] { return IsWindowVisible(button()) != FALSE; }));
        ASSERT_TRUE(BringToFront(SheetWindow()));
        const RECT place = PlaceOf(button());
        Click({place.left + 8, (place.top + place.bottom) / 2});
        ASSERT_TRUE(Eventually([&] { return Ask(button(), BM_GETCHECK) == BST_CHECKED; }));
        Click(MiddleOf(GetDlgItem(SheetWindow(), IDOK)));
        ASSERT_TRUE(Eventually([] { return !SheetWindow(); }));
    };
    choose(IDC_OWN_TASKS);
    EXPECT_TRUE(PrimaryShows({"A", "C", "D"}));
    EXPECT_TRUE(BringToFront(second.window));
    EXPECT_TRUE(Eventually([&] { return ButtonsOn(bars[0]) == Titles{"*B"} || ButtonsOn(bars[1]) == Titles{"*B"}; }));
    OpenAt("E", OnFirst);
    EXPECT_TRUE(PrimaryShows({"A", "C", "D", "E"}));
    choose(IDC_ALL_TASKS);
    EXPECT_TRUE(PrimaryShows({"A", "C", "D", "E", "B"}));
    EXPECT_TRUE(Eventually([&] { return ButtonsOn(bars[0]).size() == 5 && ButtonsOn(bars[1]).size() == 5; }));
    last.program->Kill();
    EXPECT_TRUE(PrimaryShows({"A", "D", "E", "B"}));
}

TEST_F(TaskListTest, ButtonsActivateMinimiseAndRestoreByClick) {
    const Sample one = OpenAt("One", OnSecond);
    const Sample two = OpenAt("Two", {1400, 300});
    StartAll();
    // A window that was active before the bar came isn't marked until it is activated again.
    ASSERT_TRUE(BringToFront(one.window));
    ASSERT_TRUE(BringToFront(two.window));
    ASSERT_TRUE(Shows(2, {"One", "*Two"}));
    const auto ink = [] { return Share(2, "One", RGB(0, 0, 0)); };
    const int plain = ink();
    const auto inFront = [&] { return !IsIconic(one.window) && GetForegroundWindow() == one.window; };
    Click(ButtonPlace(2, "One"));
    EXPECT_TRUE(Eventually(inFront)) << Describe(GetForegroundWindow());
    EXPECT_TRUE(Shows(2, {"*One", "Two"}));
    EXPECT_TRUE(Eventually([&] { return plain > 0 && ink() > plain; })) << ink() << " is as bold as " << plain;
    Click(ButtonPlace(2, "One"));
    EXPECT_TRUE(Eventually([&] { return IsIconic(one.window) != FALSE; }));
    EXPECT_FALSE(IsIconic(two.window));
    Click(ButtonPlace(2, "One"));
    EXPECT_TRUE(Eventually(inFront));
    EXPECT_TRUE(Shows(2, {"*One", "Two"}));
    RightClick(ButtonPlace(2, "Two"));
    ASSERT_TRUE(EntersLoop(two.window, GUI_INMENUMODE));
    Click({600, 600});
    EXPECT_TRUE(LeavesLoop(two.window, GUI_INMENUMODE));
}

TEST_F(TaskListTest, HungProgramsDelayNoOtherButton) {
    const Sample hung = OpenAt("Hung", OnSecond);
    const Sample good = OpenAt("Good", {1400, 300});
    OpenAt("More", {1500, 300});
    tray.Start(children);
    PostMessageA(hung.window, sample::Hang, 20000, 0);
    const DWORD start = GetTickCount();
    StartLoader();
    EXPECT_TRUE(Eventually([&] { return ButtonsOn(2).size() == 3; }));
    // Two broadcasts of the start wait for the program, two seconds each. Three questions would be six more.
    EXPECT_LT(GetTickCount() - start, 7000U) << "the time until all buttons are there";
    Click(ButtonPlace(2, "Hung"));
    Click(ButtonPlace(2, "Good"));
    EXPECT_TRUE(Eventually([&] { return GetForegroundWindow() == good.window; }, 5000))
        << Describe(GetForegroundWindow());
    hung.program->Kill();
    EXPECT_TRUE(Eventually([&] { return ButtonsOn(2).size() == 2; }));
}

}  // namespace

}  // namespace halyard::test
