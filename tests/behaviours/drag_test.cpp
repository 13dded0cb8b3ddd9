// Windows of foreign programs, dragged by their captions over the borders of displays, and the ways in which a drag
// ends.
#include "support/behaviour_fixture.h"

namespace halyard::test {

namespace {

constexpr char Place[] = "--count 2 --at 600,100,300,240";

RECT At(POINT corner) {
    return {corner.x, corner.y, corner.x + 300, corner.y + 240};
}

// -1 of a window that isn't layered.
int OpacityOf(HWND window) {
    BYTE alpha = 0;
    if (!(GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_LAYERED)) return -1;
    return GetLayeredWindowAttributes(window, nullptr, &alpha, nullptr) ? alpha : -2;
}

class DragTest : public BehaviourTest {
protected:
    void SetUp() override {
        BehaviourTest::SetUp();
        Set("Autodock", 1);
        Set("DragTrans", 1);
        Set("DragTransPerCent", 50);
    }
    void Open() {
        StartLoader();
        frame = OpenFrame("Dragged", Place);
        ASSERT_TRUE(WindowsBecome(0, 2));
        other = WindowOf(frame.program->Id(), "Dragged 2");
        SetWindowPos(other, HWND_BOTTOM, 40, 400, 300, 240, SWP_NOACTIVATE);
        ASSERT_TRUE(BringToFront(frame.window));
    }
    Sample frame;
    HWND other = nullptr;
};

using DragEndTest = DragTest;

TEST_F(DragTest, DocksAtInnerBordersOnly) {
    const struct {
        std::vector<Display> displays;
        // How far the cursor is from where it took the window at 600, 100, and where the window's corner is then.
        std::vector<std::pair<POINT, POINT>> steps;
    } roads[] = {{SideBySide(),
                  {{{200, 20}, {724, 120}},
                   {{300, 20}, {1024, 120}},
                   {{500, 20}, {1100, 120}},
                   {{290, 20}, {1024, 120}},
                   {{210, 20}, {724, 120}},
                   {{-650, 0}, {-50, 100}}}},
                 {AbovePrimary(), {{{0, -200}, {600, 0}}, {{0, -300}, {600, -240}}, {{0, -500}, {600, -400}}}},
                 {UnderTaskbars(), {{{200, 500}, {724, 600}}, {{300, 500}, {1024, 600}}}}};
    Open();
    for (const auto& [displays, steps] : roads) {
        ASSERT_TRUE(Arrange(displays)) << Describe(PresentDisplays());
        AnnounceDisplays();
        TellSettings(frame);
        SetWindowPos(frame.window, nullptr, 600, 100, 300, 240, SWP_NOZORDER);
        Drag drag(frame.window);
        EXPECT_EQ(OpacityOf(frame.window), -1) << "taken, but not moved yet";
        for (const auto& [cursor, corner] : steps) {
            drag.SlowlyTo(cursor.x, cursor.y);
            EXPECT_TRUE(BecomesPlaced(frame.window, At(corner))) << cursor.x << "," << cursor.y;
            EXPECT_EQ(OpacityOf(frame.window), 127);
        }
        drag.Drop();
        EXPECT_TRUE(BecomesPlaced(frame.window, At(steps.back().second))) << "dropped";
    }
}

TEST_F(DragEndTest, EscapeAndUnloadingGiveEverythingBack) {
    Open();
    const auto looksAsBefore = [this] {
        COLORREF key = 0;
        DWORD flags = 0;
        return OpacityOf(frame.window) == 100 && GetLayeredWindowAttributes(frame.window, &key, nullptr, &flags) &&
               key == RGB(255, 0, 255) && flags == (LWA_ALPHA | LWA_COLORKEY);
    };
    SetWindowLongA(frame.window, GWL_EXSTYLE, GetWindowLongA(frame.window, GWL_EXSTYLE) | WS_EX_LAYERED);
    SetLayeredWindowAttributes(frame.window, RGB(255, 0, 255), 100, LWA_ALPHA | LWA_COLORKEY);
    {
        Drag drag(frame.window);
        drag.To(300, 50);
        ASSERT_TRUE(BecomesPlaced(frame.window, At({1024, 150})));
        EXPECT_EQ(OpacityOf(frame.window), 127);
        TapKey("Escape");
        EXPECT_TRUE(BecomesPlaced(frame.window, At({600, 100})));
        EXPECT_TRUE(Eventually(looksAsBefore));
    }
    {
        // Not where the last one began: that would be a double-click.
        Drag drag(frame.window, {660, CaptionOf(frame.window).y});
        drag.To(200, 0);
        ASSERT_TRUE(BecomesPlaced(frame.window, At({724, 100})));
        ASSERT_EQ(Ask(frame.window, sample::HasOwnProcedure), 0) << "watched";
        // The platform would drop the library when the hooks have gone; Wine leaves that to the program.
        Loader("--disable");
        ASSERT_EQ(Ask(other, sample::DropLibrary), 1);
        EXPECT_EQ(Ask(frame.window, sample::HasOwnProcedure), 1);
        EXPECT_TRUE(looksAsBefore());
        // The drag goes on without it, from where the window was put.
        drag.To(250, 0);
        EXPECT_TRUE(BecomesPlaced(frame.window, At({774, 100})));
    }
    Loader("--enable");
    ASSERT_TRUE(WindowsBecome(0, 2));
    Drag drag(frame.window);
    drag.To(200, 0);
    EXPECT_TRUE(BecomesPlaced(frame.window, At({1024, 100}))) << "watched again";
}

}  // namespace

}  // namespace halyard::test
