// Where bars stand, and how the user moves, sizes and hides them.
#include "shell/record.h"
#include "taskbars/taskbar_fixture.h"

#include <algorithm>
#include <cstdlib>

namespace halyard::test {

namespace {

// The bar of the second display, in the classic look.
constexpr RECT AtBottom = {1024, 740, 2048, 770};
constexpr RECT AtTop = {1024, -2, 2048, 28};
constexpr RECT AtLeft = {1024, 0, 1122, 768};
constexpr RECT AtRight = {1950, 0, 2048, 768};
constexpr POINT Elsewhere = {500, 300};

// Items of the bar's menu, by the presses of the down key that lead to them.
enum MenuItem { CloseItem = 1, AutohideItem, TaskManagerItem, OnTopItem, LockItem, PropertiesItem };

class DockingTest : public TaskbarTest {
protected:
    void DragBar(POINT to, const RECT& becomes) {
        MoveMouse(EmptyPlace(2));
        PressMouse();
        MoveMouse(to);
        EXPECT_TRUE(BarBecomes(2, becomes)) << "while dragged to " << to.x << "," << to.y;
        ReleaseMouse();
        MoveMouse(Elsewhere);
        EXPECT_TRUE(BarBecomes(2, becomes));
    }
    // Takes the bar's inner side that far, in steps that are smaller than a row.
    void Size(int dx, int dy, const RECT& becomes) {
        const RECT bar = PlaceOf(BarOn(2));
        Drag drag(BarOn(2), {dx ? bar.left + 1 : 1500, dy ? bar.top + 1 : 400});
        ASSERT_TRUE(drag.Began());
        const int steps = (std::max(std::abs(dx), std::abs(dy)) + 12) / 13;
        for (int step = 1; step <= steps; ++step)
            drag.To(dx * step / steps, dy * step / steps);
        drag.Drop();
        EXPECT_TRUE(BarBecomes(2, becomes)) << dx << "," << dy;
    }
    static bool IsTopmost() { return GetWindowLongA(BarOn(2), GWL_EXSTYLE) & WS_EX_TOPMOST; }
    static LRESULT HitAt(int x, int y) { return Ask(BarOn(2), WM_NCHITTEST, 0, MAKELPARAM(x, y)); }
};

TEST_F(DockingTest, TheMenuDoesAndStoresWhatItSays) {
    StartAll();
    ASSERT_TRUE(BarBecomes(2, AtBottom));
    for (const bool on : {false, true}) {
        Choose(2, OnTopItem);
        EXPECT_TRUE(Eventually([&] { return Stored("TaskbarOnTop_2") == on && IsTopmost() == on; }));
    }
    // A locked bar is neither dragged nor sized.
    Choose(2, LockItem);
    EXPECT_TRUE(Eventually([&] { return Stored("TaskbarLocked_2") == 1; }));
    EXPECT_EQ(HitAt(1500, 741), HTCLIENT);
    DragBar({1500, 100}, AtBottom);
    Choose(2, LockItem);
    EXPECT_TRUE(Eventually([&] { return Stored("TaskbarLocked_2") == 0; }));
    EXPECT_EQ(HitAt(1500, 741), HTTOP);

    Choose(2, PropertiesItem);
    ASSERT_TRUE(Eventually([] { return SheetWindow() != nullptr; }));
    PostMessageA(SheetWindow(), WM_CLOSE, 0, 0);
    ASSERT_TRUE(Eventually([] { return SheetWindow() == nullptr; }));
    ASSERT_TRUE(BringToFront(BarOn(2)));
    Choose(2, CloseItem);
    EXPECT_TRUE(LosesBar(2));
    EXPECT_EQ(Stored("TaskbarsEnable"), 1U);
    AskServer(published::Restart, 1);
    EXPECT_TRUE(GetsBar(2));
}

TEST_F(DockingTest, DragsTakeABarToEachEdgeAndSizeIt) {
    Set("TaskbarEdge_2", 77);  // no edge
    StartAll();
    ASSERT_TRUE(BarBecomes(2, {1024, 0, 2048, 768}));
    QuitLoader();
    Set("TaskbarEdge_2", 3);
    StartLoader();
    ASSERT_TRUE(BarBecomes(2, AtBottom));
    Size(0, -53, {1024, 690, 2048, 770});
    Size(0, -391, {1024, 390, 2048, 770});
    Size(0, 350, AtBottom);
    DragBar({1500, 60}, AtTop);
    DragBar({1100, 400}, AtLeft);
    DragBar({500, 300}, AtLeft);  // beyond its display
    DragBar({1990, 400}, AtRight);
    Size(-150, 0, {1800, 0, 2048, 768});
    Size(244, 0, {2046, 0, 2048, 768});
    Size(-60, 0, {1986, 0, 2048, 768});
    DragBar({1500, 60}, AtTop);
    // It starts as it was left.
    QuitLoader();
    EXPECT_EQ(Stored("TaskbarEdge_2"), 1U);
    Set("TaskbarLocked_2", 1);
    Set("TaskbarOnTop_2", 0);
    StartLoader();
    EXPECT_TRUE(BarBecomes(2, AtTop));
    EXPECT_TRUE(Eventually([&] { return HitAt(1500, 26) == HTCLIENT; }));
    EXPECT_FALSE(IsTopmost());
}

TEST_F(DockingTest, AnAutohideBarFollowsTheCursor) {
    Set("TaskbarAutohide_2", 1);
    StartAll();
    constexpr RECT Hidden = {1024, 766, 2048, 768};
    ASSERT_TRUE(BarBecomes(2, Hidden));
    MoveMouse({1500, 767});
    EXPECT_TRUE(BarBecomes(2, AtBottom));
    // An open menu keeps it.
    RightClick(EmptyPlace(2));
    ASSERT_TRUE(EntersLoop(BarOn(2), GUI_INMENUMODE));
    MoveMouse(Elsewhere);
    Sleep(800);
    EXPECT_TRUE(BarBecomes(2, AtBottom));
    TapKey("Escape");
    EXPECT_TRUE(BarBecomes(2, Hidden));
    // It goes at once when another window becomes active.
    const Sample sample = OpenAt("Other", {100, 100});
    MoveMouse({1500, 767});
    EXPECT_TRUE(BarBecomes(2, AtBottom));
    ASSERT_TRUE(BringToFront(BarOn(2)));
    MoveMouse(Elsewhere);
    ASSERT_TRUE(BringToFront(sample.window));
    EXPECT_TRUE(BarBecomes(2, Hidden));
    MoveMouse({1500, 767});
    EXPECT_TRUE(BarBecomes(2, AtBottom));
    Choose(2, AutohideItem);
    EXPECT_TRUE(Eventually([&] { return Stored("TaskbarAutohide_2") == 0; }));
    MoveMouse(Elsewhere);
    Sleep(800);
    EXPECT_TRUE(BarBecomes(2, AtBottom));
}

std::string LastTold() {
    return TextOf(standin::StandInKey, standin::BarValue);
}

TEST_F(DockingTest, AShellThatIsBusyOrStartsAnewLearnsOfABarInTheEnd) {
    const auto isTold = [](const char* wanted) {
        if (Eventually([&] { return LastTold() == wanted; })) return testing::AssertionSuccess();
        return testing::AssertionFailure() << "told last: " << LastTold() << ", wanted: " << wanted;
    };
    tray.Start(children);
    WriteText(standin::StandInKey, standin::BarValue, "");
    tray.Hang(8000);
    StartLoader();
    ASSERT_TRUE(BarBecomes(2, AtBottom));
    EXPECT_EQ(LastTold(), "") << "the bar is there before the shell knows";
    EXPECT_TRUE(isTold("3 edge 3 at 1024,740,2048,770"));
    tray.Kill();
    WriteText(standin::StandInKey, standin::BarValue, "");
    tray.Start(children);
    EXPECT_TRUE(isTold("3 edge 3 at 1024,740,2048,770"));
    // The new shell tells it of full-screen programs.
    const Sample sample = OpenAt("Screen", {1024, 0});
    SetWindowPos(sample.window, nullptr, 1024, 0, 1024, 768, SWP_NOZORDER);
    const auto inFront = [&](HWND wanted) {
        return Eventually([&] { return GetAncestor(WindowFromPoint({1900, 755}), GA_ROOT) == wanted; });
    };
    EXPECT_TRUE(inFront(BarOn(2)));
    tray.SayThatScreenIsFull(true);
    EXPECT_TRUE(inFront(sample.window)) << Describe(WindowFromPoint({1900, 755}));
    tray.SayThatScreenIsFull(false);
    EXPECT_TRUE(inFront(BarOn(2))) << Describe(WindowFromPoint({1900, 755}));
    DragBar({1500, 60}, AtTop);
    EXPECT_TRUE(isTold("3 edge 1 at 1024,-2,2048,28"));
    PostMessageA(BarOn(2), WM_COMMAND, 40002, 0);
    EXPECT_TRUE(isTold("1 edge 1 at 0,0,0,0"));
}

// A pixel of the screen.
COLORREF ColourAt(POINT point) {
    HDC screen = GetDC(nullptr);
    const COLORREF colour = GetPixel(screen, point.x, point.y);
    ReleaseDC(nullptr, screen);
    return colour;
}

// With visual styles that have something for taskbars.
class ThemedTest : public DockingTest {
protected:
    static constexpr char Key[] = "Software\\Microsoft\\Windows\\CurrentVersion\\ThemeManager";
    void SetUp() override {
        DockingTest::SetUp();
        before = TextOf(Key, "DllName");
        WriteText(Key, "DllName", BinFolder() + "standin_theme.msstyles");
        WriteText(Key, "ColorName", "Plain");
    }
    void TearDown() override {
        DockingTest::TearDown();
        WriteText(Key, "DllName", before);
        WriteText(Key, "ColorName", "Blue");
    }
    std::string before;
};

TEST_F(ThemedTest, TheThemeDrawsTheBarAndItsSizingStrip) {
    constexpr COLORREF Bar = RGB(60, 100, 180), Strip = RGB(250, 220, 90);
    StartAll();
    ASSERT_TRUE(BarBecomes(2, {1024, 734, 2048, 768}));
    // The toolbar leaves the strip alone and fills what is below it, also without a button.
    EXPECT_TRUE(BecomesPlaced(FindWindowExA(BarOn(2), nullptr, "ToolbarWindow32", nullptr), {1024, 738, 2048, 768}));
    EXPECT_TRUE(Eventually([] {
        return ColourAt({1900, 735}) == Strip && ColourAt({1900, 755}) == Bar;
    })) << std::hex
        << ColourAt({1900, 735}) << ' ' << ColourAt({1900, 755});
    EXPECT_EQ(HitAt(1500, 737), HTTOP);
    EXPECT_EQ(HitAt(1500, 738), HTCLIENT);
    Size(0, -35, {1024, 704, 2048, 768});
    Size(0, 61, {1024, 766, 2048, 768});
    Size(0, -40, {1024, 734, 2048, 768});
    DragBar({1990, 400}, AtRight);
    // Locked and slid away, it is all toolbar; the cursor brings it back all the same.
    PostMessageA(BarOn(2), WM_COMMAND, 40003, 0);
    PostMessageA(BarOn(2), WM_COMMAND, 40002, 0);
    EXPECT_TRUE(BarBecomes(2, {2046, 0, 2048, 768}));
    MoveMouse({2047, 300});
    EXPECT_TRUE(BarBecomes(2, AtRight));
    EXPECT_TRUE(Eventually([] { return ColourAt({1951, 600}) == Bar; })) << std::hex << ColourAt({1951, 600});
}

TEST_F(DockingTest, BarsFollowTheDisplaysAndThePrimaryBar) {
    const auto haveBars = [](const std::vector<unsigned>& wanted) {
        return Eventually([&] {
            std::vector<unsigned> seen;
            for (unsigned display = 1; display <= PresentDisplays().size(); ++display)
                if (TaskbarTest::BarOn(display)) seen.push_back(display);
            return seen == wanted;
        });
    };
    const auto arrange = [](const std::vector<Display>& displays) {
        EXPECT_TRUE(Arrange(displays)) << Describe(PresentDisplays());
        AnnounceDisplays();
    };
    OpenAt("One", {100, 100});
    StartAll();
    ASSERT_TRUE(BarBecomes(2, AtBottom));
    arrange(ThreeInARow());
    EXPECT_TRUE(Eventually([] { return BarOn(2) && BarOn(3); }) || haveBars({1, 3}));
    arrange(SideBySide());
    EXPECT_TRUE(haveBars({2}));
    EXPECT_TRUE(BarBecomes(2, AtBottom));

    // Gone while it is being dragged, and back.
    MoveMouse(EmptyPlace(2));
    PressMouse();
    MoveMouse({1500, 100});
    ASSERT_TRUE(BarBecomes(2, AtTop));
    arrange({SideBySide()[0]});
    EXPECT_TRUE(haveBars({}));
    ReleaseMouse();
    MoveMouse(Elsewhere);
    EXPECT_GE(AskServer(WM_NULL), 0);
    arrange(SideBySide());
    EXPECT_TRUE(haveBars({2}));

    // The shell tells the bars that it knows by now.
    ASSERT_TRUE(Eventually([] { return LastTold()[0] == '3'; })) << LastTold();
    tray.Move(2, 3);
    EXPECT_TRUE(haveBars({1}));
    EXPECT_TRUE(Shows(1, {"One"}));
    EXPECT_TRUE(PrimaryShows({}));
    tray.Move(1, 1);
    EXPECT_TRUE(haveBars({2}));
    EXPECT_TRUE(PrimaryShows({"One"}));
}

}  // namespace

}  // namespace halyard::test
