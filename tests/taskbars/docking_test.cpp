// Where bars stand, and how the user moves, sizes and hides them.
#include "taskbars/taskbar_fixture.h"

namespace halyard::test {

namespace {

using DockingTest = TaskbarTest;

// The bar of the second display, in the classic look.
constexpr RECT AtBottom = {1024, 740, 2048, 770};
constexpr RECT AtTop = {1024, -2, 2048, 28};
constexpr RECT AtLeft = {1024, 0, 1122, 768};
constexpr RECT AtRight = {1950, 0, 2048, 768};
constexpr POINT Elsewhere = {500, 300};

// Items of the bar's menu, by the presses of the down key that lead to them.
enum MenuItem { CloseItem = 1, AutohideItem, TaskManagerItem, OnTopItem, LockItem, PropertiesItem };

bool IsTopmost(HWND window) {
    return GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_TOPMOST;
}

TEST_F(DockingTest, TheMenuDoesAndStoresWhatItSays) {
    StartAll();
    ASSERT_TRUE(BarBecomes(2, AtBottom));
    EXPECT_TRUE(IsTopmost(BarOn(2)));
    Choose(2, OnTopItem);
    EXPECT_TRUE(Eventually([&] { return Stored("TaskbarOnTop_2") == 0 && !IsTopmost(BarOn(2)); }));
    Choose(2, OnTopItem);
    EXPECT_TRUE(Eventually([&] { return Stored("TaskbarOnTop_2") == 1 && IsTopmost(BarOn(2)); }));

    // A locked bar is neither dragged nor sized.
    Choose(2, LockItem);
    EXPECT_TRUE(Eventually([&] { return Stored("TaskbarLocked_2") == 1; }));
    EXPECT_EQ(Ask(BarOn(2), WM_NCHITTEST, 0, MAKELPARAM(1500, 741)), HTCLIENT);
    MoveMouse(EmptyPlace(2));
    PressMouse();
    MoveMouse({1500, 100});
    ReleaseMouse();
    EXPECT_TRUE(BarBecomes(2, AtBottom));
    Choose(2, LockItem);
    EXPECT_TRUE(Eventually([&] { return Stored("TaskbarLocked_2") == 0; }));
    EXPECT_EQ(Ask(BarOn(2), WM_NCHITTEST, 0, MAKELPARAM(1500, 741)), HTTOP);

    Choose(2, PropertiesItem);
    const auto sheet = [&] { return WindowOf(loader->Id(), "Tevral Ombrel Windows Manager"); };
    ASSERT_TRUE(Eventually([&] { return sheet() != nullptr; }));
    PostMessageA(sheet(), WM_CLOSE, 0, 0);
    ASSERT_TRUE(Eventually([&] { return sheet() == nullptr; }));
    ASSERT_TRUE(BringToFront(BarOn(2)));
    Choose(2, CloseItem);
    EXPECT_TRUE(LosesBar(2));
    EXPECT_EQ(Stored("TaskbarsEnable"), 1U);
    AskServer(published::Restart, 1);
    EXPECT_TRUE(GetsBar(2));
}

TEST_F(DockingTest, BarsStartAsTheyWereLeft) {
    Set("TaskbarEdge_2", 1);
    Set("TaskbarLocked_2", 1);
    Set("TaskbarOnTop_2", 0);
    StartAll();
    ASSERT_TRUE(BarBecomes(2, AtTop));
    // It locks itself by a posted command.
    EXPECT_TRUE(Eventually([&] { return Ask(BarOn(2), WM_NCHITTEST, 0, MAKELPARAM(1500, 26)) == HTCLIENT; }));
    EXPECT_FALSE(IsTopmost(BarOn(2)));
    QuitLoader();
    EXPECT_EQ(Stored("TaskbarEdge_2"), 1U);
    EXPECT_EQ(Stored("TaskbarLocked_2"), 1U);
    // A number that is no edge.
    Set("TaskbarEdge_2", 77);
    Set("TaskbarLocked_2", 0);
    StartLoader();
    EXPECT_TRUE(BarBecomes(2, {1024, 0, 2048, 768}));
}

TEST_F(DockingTest, ADragTakesABarToEachEdgeAndBack) {
    StartAll();
    ASSERT_TRUE(BarBecomes(2, AtBottom));
    const struct {
        POINT to;
        RECT place;
        DWORD edge;
    } drags[] = {{{1500, 60}, AtTop, 1},
                 {{1100, 400}, AtLeft, 0},
                 // Beyond the display, it stays on its own.
                 {{500, 300}, AtLeft, 0},
                 {{1990, 400}, AtRight, 2},
                 {{1500, 700}, AtBottom, 3}};
    for (const auto& drag : drags) {
        MoveMouse(EmptyPlace(2));
        PressMouse();
        MoveMouse(drag.to);
        EXPECT_TRUE(BarBecomes(2, drag.place)) << "while dragged to " << drag.to.x << "," << drag.to.y;
        ReleaseMouse();
        MoveMouse(Elsewhere);
        EXPECT_TRUE(BarBecomes(2, drag.place));
    }
    QuitLoader();
    EXPECT_EQ(Stored("TaskbarEdge_2"), 3U);
}

// Takes the bar's inner side to that place.
void SizeTo(HWND bar, POINT grip, POINT to) {
    Drag drag(bar, grip);
    ASSERT_TRUE(drag.Began());
    drag.To(to.x - grip.x, to.y - grip.y);
    drag.Drop();
}

TEST_F(DockingTest, RowsAreSizedWithTheMouse) {
    StartAll();
    ASSERT_TRUE(BarBecomes(2, AtBottom));
    const struct {
        LONG to;
        RECT place;
    } sizes[] = {{688, {1024, 690, 2048, 770}}, {300, {1024, 390, 2048, 770}}, {741, AtBottom}};
    for (const auto& size : sizes) {
        SizeTo(BarOn(2), {1500, PlaceOf(BarOn(2)).top + 1}, {1500, size.to});
        EXPECT_TRUE(BarBecomes(2, size.place)) << size.to;
    }
}

TEST_F(DockingTest, WidthsAreSizedWithTheMouse) {
    Set("TaskbarEdge_2", 2);
    StartAll();
    ASSERT_TRUE(BarBecomes(2, AtRight));
    const struct {
        LONG to;
        LONG left;
    } sizes[] = {{1801, 1800}, {1201, 1536}, {2030, 2014}, {2045, 2046}};
    for (const auto& size : sizes) {
        SizeTo(BarOn(2), {PlaceOf(BarOn(2)).left + 1, 400}, {size.to, 400});
        EXPECT_TRUE(BarBecomes(2, {size.left, 0, 2048, 768})) << size.to;
    }
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
    // Its display may go and come back meanwhile.
    EXPECT_TRUE(Arrange({SideBySide()[0]}));
    AnnounceDisplays();
    EXPECT_TRUE(Eventually([] { return !FindWindowA("TevralHalyardTaskbar", nullptr); }));
    EXPECT_TRUE(Arrange(SideBySide()));
    AnnounceDisplays();
    EXPECT_TRUE(BarBecomes(2, Hidden));
    MoveMouse({1500, 767});
    EXPECT_TRUE(BarBecomes(2, AtBottom));
    Choose(2, AutohideItem);
    EXPECT_TRUE(Eventually([&] { return Stored("TaskbarAutohide_2") == 0; }));
    MoveMouse(Elsewhere);
    Sleep(800);
    EXPECT_TRUE(BarBecomes(2, AtBottom));
}

// A pixel of the screen.
COLORREF ColourAt(POINT point) {
    HDC screen = GetDC(nullptr);
    const COLORREF colour = GetPixel(screen, point.x, point.y);
    ReleaseDC(nullptr, screen);
    return colour;
}

// With visual styles that have something for taskbars.
class ThemedTest : public TaskbarTest {
protected:
    static constexpr char Key[] = "Software\\Microsoft\\Windows\\CurrentVersion\\ThemeManager";
    void SetUp() override {
        TaskbarTest::SetUp();
        before = TextOf(Key, "DllName");
        WriteText(Key, "DllName", BinFolder() + "standin_theme.msstyles");
        WriteText(Key, "ColorName", "Plain");
    }
    void TearDown() override {
        TaskbarTest::TearDown();
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
    SizeTo(BarOn(2), {1500, 735}, {1500, 700});
    EXPECT_TRUE(BarBecomes(2, {1024, 704, 2048, 768}));
    SizeTo(BarOn(2), {1500, 705}, {1500, 766});
    EXPECT_TRUE(BarBecomes(2, {1024, 766, 2048, 768}));
    PostMessageA(BarOn(2), WM_COMMAND, 40003, 0);
    EXPECT_TRUE(Eventually([] { return Stored("TaskbarLocked_2") == 1; }));
    QuitLoader();
    StartLoader();
    EXPECT_TRUE(BarBecomes(2, {1024, 738, 2048, 768}));
    EXPECT_TRUE(Eventually([] { return ColourAt({1900, 739}) == Bar; })) << std::hex << ColourAt({1900, 739});
}

TEST_F(DockingTest, FullScreenProgramsAreInFront) {
    StartAll();
    const Sample sample = OpenAt("Screen", {1024, 0});
    SetWindowPos(sample.window, nullptr, 1024, 0, 1024, 768, SWP_NOZORDER);
    ASSERT_TRUE(Shows(2, {"*Screen"}));
    const auto inFront = [&](HWND wanted) {
        return Eventually([&] { return GetAncestor(WindowFromPoint({1900, 755}), GA_ROOT) == wanted; });
    };
    EXPECT_TRUE(inFront(BarOn(2)));
    tray.SayThatScreenIsFull(true);
    EXPECT_TRUE(inFront(sample.window)) << Describe(WindowFromPoint({1900, 755}));
    tray.SayThatScreenIsFull(false);
    EXPECT_TRUE(inFront(BarOn(2))) << Describe(WindowFromPoint({1900, 755}));
}

TEST_F(DockingTest, BarsFollowTheDisplays) {
    ASSERT_TRUE(Arrange(ThreeInARow()));
    StartAll();
    unsigned bars = 0;
    for (unsigned display = 1; display <= 3; ++display)
        if (BarOn(display)) ++bars;
    ASSERT_EQ(bars, 2U);
    const auto arrange = [](const std::vector<Display>& displays) {
        EXPECT_TRUE(Arrange(displays)) << Describe(PresentDisplays());
        AnnounceDisplays();
    };
    arrange(SideBySide());
    const auto barCount = [] {
        unsigned count = 0;
        for (HWND bar = nullptr; (bar = FindWindowExA(nullptr, bar, "TevralHalyardTaskbar", nullptr)) != nullptr;)
            ++count;
        return count;
    };
    EXPECT_TRUE(Eventually([&] { return barCount() == 1 && BarOn(2); })) << barCount();
    EXPECT_TRUE(BarBecomes(2, AtBottom));

    // Gone while it is being dragged, and back.
    MoveMouse(EmptyPlace(2));
    PressMouse();
    MoveMouse({1500, 100});
    ASSERT_TRUE(BarBecomes(2, AtTop));
    arrange({SideBySide()[0]});
    EXPECT_TRUE(Eventually([&] { return barCount() == 0; })) << barCount();
    ReleaseMouse();
    MoveMouse(Elsewhere);
    EXPECT_GE(AskServer(WM_NULL), 0);
    arrange(SideBySide());
    EXPECT_TRUE(GetsBar(2));
}

TEST_F(DockingTest, ThePrimaryBarMayMove) {
    OpenAt("One", {100, 100});
    StartAll();
    ASSERT_TRUE(GetsBar(2));
    tray.Move(2, 3);
    EXPECT_TRUE(LosesBar(2));
    EXPECT_TRUE(GetsBar(1));
    EXPECT_TRUE(Shows(1, {"One"}));
    EXPECT_TRUE(PrimaryShows({}));
    tray.Move(1, 1);
    EXPECT_TRUE(GetsBar(2));
    EXPECT_TRUE(LosesBar(1));
    EXPECT_TRUE(PrimaryShows({"One"}));
}

}  // namespace

}  // namespace halyard::test
