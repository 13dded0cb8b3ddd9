// Drags that aren't plain ones, and drags that end in other ways than by the button going up.
#include "support/behaviour_fixture.h"

namespace halyard::test {

namespace {

constexpr char Place[] = "--at 600,100,300,240";
constexpr RECT Start = {600, 100, 900, 340};
constexpr RECT Docked = {724, 100, 1024, 340};

class DragEndTest : public BehaviourTest {
protected:
    void SetUp() override {
        BehaviourTest::SetUp();
        Set("Autodock", 1);
        Set("DragTrans", 1);
        Set("DragTransPerCent", 50);
        StartLoader();
    }

    // A drag that docks shows that the library watches drags in that program.
    static void ExpectDocking(HWND window) {
        SetWindowPos(window, HWND_TOP, Start.left, Start.top, 300, 240, SWP_NOACTIVATE);
        ASSERT_TRUE(BecomesPlaced(window, Start));
        Drag drag(window, {Start.left + 60, CaptionOf(window).y});
        drag.To(200, 0);
        EXPECT_TRUE(BecomesPlaced(window, Docked));
        drag.Drop();
        EXPECT_TRUE(BecomesPlaced(window, Docked));
    }
};

TEST_F(DragEndTest, SizingDocksNothing) {
    const Sample frame = OpenFrame("Sized", Place);
    ASSERT_TRUE(WindowsBecome(0, 1));
    Drag drag(frame.window, LowerRightCornerOf(frame.window));
    drag.SlowlyTo(200, 60);
    EXPECT_TRUE(BecomesPlaced(frame.window, {600, 100, 1100, 400}));
    EXPECT_FALSE(GetWindowLongA(frame.window, GWL_EXSTYLE) & WS_EX_LAYERED) << "nor does it show transparent";
    drag.Drop();
    EXPECT_TRUE(BecomesPlaced(frame.window, {600, 100, 1100, 400}));
    EXPECT_EQ(Ask(frame.window, frame::HasOwnProcedure), 1);
    ExpectDocking(frame.window);
}

TEST_F(DragEndTest, AnOutlineDocksAsItsWindowDoes) {
    SetFullDrag(false);
    const Sample frame = OpenFrame("Outlined", Place);
    ASSERT_TRUE(WindowsBecome(0, 1));
    const LRESULT before = Ask(frame.window, sample::CountMessage, WM_MOVING);
    Drag drag(frame.window);
    drag.To(100, 0);
    // The program sees the steps that nothing is changed in.
    ASSERT_TRUE(Eventually([&] { return Ask(frame.window, sample::CountMessage, WM_MOVING) > before; }));
    drag.To(200, 0);
    drag.Drop();
    EXPECT_TRUE(BecomesPlaced(frame.window, Docked));
}

TEST_F(DragEndTest, EscapePutsTheWindowBack) {
    const Sample frame = OpenFrame("Escaped", Place);
    ASSERT_TRUE(WindowsBecome(0, 1));
    ASSERT_TRUE(BringToFront(frame.window));
    Drag drag(frame.window);
    drag.To(300, 50);
    ASSERT_TRUE(BecomesPlaced(frame.window, {1024, 150, 1324, 390}));
    EXPECT_EQ(Ask(frame.window, frame::HasOwnProcedure), 0) << "watched";
    TapKey("Escape");
    EXPECT_TRUE(LeavesLoop(frame.window, GUI_INMOVESIZE));
    EXPECT_TRUE(BecomesPlaced(frame.window, Start));
    EXPECT_EQ(Ask(frame.window, frame::HasOwnProcedure), 1);
    drag.Drop();
    ExpectDocking(frame.window);
}

TEST_F(DragEndTest, AWindowThatGoesLeavesTheNextOneWatched) {
    const Sample frame = OpenFrame("Pair", "--count 2 --at 600,100,300,240");
    ASSERT_TRUE(WindowsBecome(0, 2));
    const HWND other = WindowOf(frame.program->Id(), "Pair 2");
    SetWindowPos(other, HWND_BOTTOM, 40, 400, 300, 240, SWP_NOACTIVATE);
    Ask(frame.window, frame::DestroyAtMove, 3);
    {
        Drag drag(frame.window);
        // Over the border, so that some steps dock and don't reach the program.
        drag.SlowlyTo(400, 0);
        EXPECT_TRUE(Eventually([&] { return !IsWindow(frame.window); })) << Describe(frame.window);
    }
    ASSERT_TRUE(IsWindow(other));
    ExpectDocking(other);
    EXPECT_EQ(Ask(other, frame::HasOwnProcedure), 1);
}

TEST_F(DragEndTest, UnloadingGivesEverythingBack) {
    const Sample frame = OpenFrame("Unloaded", "--count 2 --at 600,100,300,240");
    ASSERT_TRUE(WindowsBecome(0, 2));
    const HWND other = WindowOf(frame.program->Id(), "Unloaded 2");
    SetWindowPos(other, HWND_BOTTOM, 40, 400, 300, 240, SWP_NOACTIVATE);
    {
        Drag drag(frame.window);
        drag.To(200, 0);
        ASSERT_TRUE(BecomesPlaced(frame.window, Docked));
        ASSERT_EQ(Ask(frame.window, frame::HasOwnProcedure), 0) << "watched";
        ASSERT_TRUE(GetWindowLongA(frame.window, GWL_EXSTYLE) & WS_EX_LAYERED);
        // The platform would drop the library when the hooks have gone; the runtime leaves that to the program.
        Loader("--disable");
        ASSERT_EQ(Ask(other, frame::DropLibrary), 1);

        EXPECT_EQ(Ask(frame.window, frame::HasOwnProcedure), 1);
        EXPECT_FALSE(GetWindowLongA(frame.window, GWL_EXSTYLE) & WS_EX_LAYERED);
        // The drag goes on without it, from where the window was put.
        drag.To(250, 0);
        EXPECT_TRUE(BecomesPlaced(frame.window, {774, 100, 1074, 340}));
    }
    EXPECT_TRUE(IsWindow(frame.window));

    Loader("--enable");
    ASSERT_TRUE(WindowsBecome(0, 2));
    ExpectDocking(frame.window);
}

}  // namespace

}  // namespace halyard::test
