// How opaque the platform says that a dragged window is, asked from another process.
#include "support/behaviour_fixture.h"

namespace halyard::test {

namespace {

constexpr char Place[] = "--at 100,100,300,240";
constexpr int Solid = -1;

// What counts of a window that isn't layered is that it isn't.
int OpacityOf(HWND window) {
    BYTE alpha = 0;
    DWORD flags = 0;
    if (!(GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_LAYERED)) return Solid;
    return GetLayeredWindowAttributes(window, nullptr, &alpha, &flags) && flags == LWA_ALPHA ? alpha : -2;
}

testing::AssertionResult BecomesOpaque(HWND window, int opacity) {
    if (Eventually([&] { return OpacityOf(window) == opacity; })) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "opacity is " << OpacityOf(window) << ", not " << opacity;
}

class TransparencyTest : public BehaviourTest {
protected:
    void SetUp() override {
        BehaviourTest::SetUp();
        Set("DragTrans", 1);
        Set("DragTransPerCent", 75);
    }
    Sample Open(const std::string& title) {
        StartLoader();
        const Sample frame = OpenFrame(title, Place);
        EXPECT_TRUE(WindowsBecome(0, 1));
        return frame;
    }
};

TEST_F(TransparencyTest, LastsFromTheFirstMoveToTheDrop) {
    const Sample frame = Open("Plain");
    Drag drag(frame.window);
    EXPECT_EQ(OpacityOf(frame.window), Solid) << "taken, but not moved yet";
    // Docking is off: the border changes nothing.
    drag.To(800, 30);
    EXPECT_TRUE(BecomesOpaque(frame.window, 191));
    EXPECT_TRUE(BecomesPlaced(frame.window, {900, 130, 1200, 370}));
    // What else changes in the extended style meanwhile stays.
    SetWindowPos(frame.window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    drag.Drop();
    EXPECT_TRUE(BecomesOpaque(frame.window, Solid));
    EXPECT_TRUE(GetWindowLongA(frame.window, GWL_EXSTYLE) & WS_EX_TOPMOST);
    EXPECT_TRUE(BecomesPlaced(frame.window, {900, 130, 1200, 370}));
}

TEST_F(TransparencyTest, EndsWithADragThatIsEscaped) {
    const Sample frame = Open("Escaped");
    ASSERT_TRUE(BringToFront(frame.window));
    for (const int own : {Solid, 100}) {
        if (own != Solid) Ask(frame.window, frame::MakeLayered, static_cast<WPARAM>(own));
        Drag drag(frame.window, {own == Solid ? 200 : 260, CaptionOf(frame.window).y});
        drag.To(50, 50);
        EXPECT_TRUE(BecomesOpaque(frame.window, 191));
        TapKey("Escape");
        EXPECT_TRUE(BecomesOpaque(frame.window, own));
        EXPECT_TRUE(BecomesPlaced(frame.window, {100, 100, 400, 340}));
    }
}

}  // namespace

}  // namespace halyard::test
