// Where bars stand, and how the user moves, sizes and hides them.
#include "support/picture.h"
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
enum MenuItem { CloseItem = 1, AutohideItem, OnTopItem = 4, LockItem };

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
    static testing::AssertionResult BecomesStored(const char* value, DWORD wanted) {
        return Comes([=] { return Stored(value) == wanted; }, [=] { return std::to_string(Stored(value)); });
    }
    static bool IsTopmost() { return GetWindowLongA(BarOn(2), GWL_EXSTYLE) & WS_EX_TOPMOST; }
    static LRESULT HitAt(int x, int y) { return Ask(BarOn(2), WM_NCHITTEST, 0, MAKELPARAM(x, y)); }
};

TEST_F(DockingTest, TheMenuDoesAndStoresWhatItSays) {
    StartAll();
    ASSERT_TRUE(BarBecomes(2, AtBottom));
    for (const bool on : {false, true}) {
        Choose(2, OnTopItem);
        EXPECT_TRUE(BecomesStored("TaskbarOnTop_2", on));
        EXPECT_TRUE(Eventually([&] { return IsTopmost() == on; }));
    }
    // A locked bar is neither dragged nor sized.
    Choose(2, LockItem);
    EXPECT_TRUE(BecomesStored("TaskbarLocked_2", 1));
    EXPECT_EQ(HitAt(1500, 741), HTCLIENT);
    DragBar({1500, 100}, AtBottom);
    Choose(2, LockItem);
    EXPECT_TRUE(BecomesStored("TaskbarLocked_2", 0));
    ASSERT_TRUE(BringToFront(BarOn(2)));
    Choose(2, CloseItem);
    EXPECT_TRUE(BarBecomes(2, {}));
    EXPECT_EQ(Stored("TaskbarsEnable"), 1U);
    AskServer(published::Restart, 1);
    EXPECT_TRUE(BarBecomes(2, AtBottom));
}

TEST_F(DockingTest, DragsTakeABarToEachEdgeAndSizeIt) {
    StartAll();
    ASSERT_TRUE(BarBecomes(2, AtBottom));
    Size(0, -53, {1024, 690, 2048, 770});
    Size(0, 30, AtBottom);
    DragBar({1500, 60}, AtTop);
    DragBar({500, 300}, AtLeft);  // beyond its display
    DragBar({1990, 400}, AtRight);
    Size(-150, 0, {1800, 0, 2048, 768});
    DragBar({1500, 60}, AtTop);
    EXPECT_TRUE(IsTold("3 edge 1 at 1024,-2,2048,28"));
    // It starts as it was left.
    QuitLoader();
    EXPECT_EQ(Stored("TaskbarEdge_2"), 1U);
    Set("TaskbarLocked_2", 1);
    Set("TaskbarOnTop_2", 0);
    Set("TaskbarAutohide_2", 1);
    StartLoader();
    EXPECT_TRUE(BarBecomes(2, {1024, 0, 2048, 2}));
    EXPECT_TRUE(Eventually([] { return HitAt(1500, 1) == HTCLIENT; }));
    EXPECT_TRUE(BarBecomes(2, AtTop));
    EXPECT_FALSE(IsTopmost());
}

TEST_F(DockingTest, AnAutohideBarFollowsTheCursor) {
    StartAll();
    ASSERT_TRUE(BarBecomes(2, AtBottom));
    Choose(2, AutohideItem);
    EXPECT_TRUE(IsTold("1 edge 3 at 0,0,0,0"));
    constexpr RECT Hidden = {1024, 766, 2048, 768};
    const auto leave = [](const RECT& becomes) {
        MoveMouse(Elsewhere);
        Sleep(800);
        EXPECT_TRUE(BarBecomes(2, becomes));
    };
    leave(Hidden);
    MoveMouse({1500, 767});
    EXPECT_TRUE(BarBecomes(2, AtBottom));
    // An open menu keeps it.
    RightClick(EmptyPlace(2));
    ASSERT_TRUE(EntersLoop(BarOn(2), GUI_INMENUMODE));
    leave(AtBottom);
    TapKey("Escape");
    leave(Hidden);
    MoveMouse({1500, 767});
    EXPECT_TRUE(BarBecomes(2, AtBottom));
    Choose(2, AutohideItem);
    EXPECT_TRUE(BecomesStored("TaskbarAutohide_2", 0));
    EXPECT_TRUE(IsTold("3 edge 3 at 1024,740,2048,770"));
    leave(AtBottom);
}

TEST_F(DockingTest, TheThemeDrawsTheBarAndItsSizingStrip) {
    constexpr COLORREF Bar = 0x3C64B4, Strip = 0xFADC5A;
    static constexpr char Key[] = "Software\\Microsoft\\Windows\\CurrentVersion\\ThemeManager";
    const std::string before = TextOf(Key, "DllName");
    const auto use = [](const std::string& file, const char* colours) {
        WriteText(Key, "DllName", file);
        WriteText(Key, "ColorName", colours);
    };
    const auto shows = [](POINT point, COLORREF colour) {
        return Eventually([=] { return PixelsOf({point.x, point.y, point.x + 1, point.y + 1})[0] == colour; });
    };
    use(BinFolder() + "standin_theme.msstyles", "Plain");
    StartAll();
    EXPECT_TRUE(BarBecomes(2, {1024, 734, 2048, 768}));
    // The toolbar leaves the strip alone and fills what is below it, also without a button.
    EXPECT_TRUE(shows({1900, 735}, Strip));
    EXPECT_TRUE(shows({1900, 738}, Bar) && shows({1900, 766}, Bar));
    EXPECT_EQ(HitAt(1500, 737), HTTOP);
    EXPECT_EQ(HitAt(1500, 738), HTCLIENT);
    Size(0, -35, {1024, 704, 2048, 768});
    DragBar({1990, 400}, AtRight);
    // Locked and slid away, it is all toolbar; the cursor brings it back all the same.
    PostMessageA(BarOn(2), WM_COMMAND, 40003, 0);
    PostMessageA(BarOn(2), WM_COMMAND, 40002, 0);
    EXPECT_TRUE(BarBecomes(2, {2046, 0, 2048, 768}));
    MoveMouse({2047, 300});
    EXPECT_TRUE(BarBecomes(2, AtRight));
    EXPECT_TRUE(shows({1951, 600}, Bar));
    use(before, "Blue");
}

TEST_F(DockingTest, BarsFollowTheDisplaysAndThePrimaryBar) {
    const auto haveBars = [](const std::vector<unsigned>& wanted) {
        return Comes([&] { return DisplaysWithBars() == wanted; },
                     [] { return testing::PrintToString(DisplaysWithBars()); });
    };
    const auto arrange = [](const std::vector<Display>& displays) {
        EXPECT_TRUE(Arrange(displays)) << Describe(PresentDisplays());
        AnnounceDisplays();
    };
    OpenAt("One", {100, 100});
    StartAll();
    ASSERT_TRUE(BarBecomes(2, AtBottom));
    arrange(ThreeInARow());
    EXPECT_TRUE(Eventually([] { return DisplaysWithBars().size() == 2; }));
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
    EXPECT_TRUE(IsTold("3 "));
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
