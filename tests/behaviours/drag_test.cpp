// Windows of foreign programs, dragged by their captions over the borders of displays.
#include "support/behaviour_fixture.h"

namespace halyard::test {

namespace {

constexpr LONG Width = 300;
constexpr LONG Height = 240;

RECT At(POINT corner) {
    return {corner.x, corner.y, corner.x + Width, corner.y + Height};
}

// How far the cursor is from where it took the window, and where the window's corner is then.
struct Step {
    POINT cursor;
    POINT corner;
};

struct Road {
    const char* name;
    std::vector<Display> (*displays)();
    POINT start;
    std::vector<Step> steps;
};

const Road Roads[] = {
    // Over the border in part and for the larger part, clear of it, and back.
    {"side by side",
     SideBySide,
     {600, 100},
     {{{100, 20}, {700, 120}},
      {{200, 20}, {724, 120}},
      {{300, 20}, {1024, 120}},
      {{500, 20}, {1100, 120}},
      {{290, 20}, {1024, 120}},
      {{210, 20}, {724, 120}},
      {{0, 0}, {600, 100}}}},
    {"outer edges",
     SideBySide,
     {600, 100},
     {{{-650, 0}, {-50, 100}}, {{0, 600}, {600, 700}}, {{300, 600}, {1024, 700}}, {{10, -105}, {610, -5}}}},
    {"to the left of the primary display",
     LeftOfPrimary,
     {100, 100},
     {{{-200, 0}, {0, 100}}, {{-300, 0}, {-300, 100}}, {{-1150, 30}, {-1050, 130}}, {{0, 0}, {100, 100}}}},
    {"above the primary display",
     AbovePrimary,
     {100, 100},
     {{{0, -200}, {100, 0}}, {{0, -300}, {100, -240}}, {{40, -500}, {140, -400}}, {{0, 0}, {100, 100}}}},
    {"all along three",
     ThreeInARow,
     {-800, 100},
     {{{640, 0}, {-300, 100}},
      {{700, 0}, {0, 100}},
      {{1600, 0}, {724, 100}},
      {{1720, 0}, {1024, 100}},
      {{0, 0}, {-800, 100}}}},
    // A bar at the bottom makes that edge an outer one, where a window may leave the desktop.
    {"under taskbars", UnderTaskbars, {600, 100}, {{{200, 500}, {724, 600}}, {{300, 500}, {1024, 600}}}},
    // The lower display's bottom lies inside the desktop's bounds.
    {"uneven heights", UnevenHeights, {1200, 300}, {{{0, 130}, {1200, 360}}, {{0, 40}, {1200, 340}}}},
};

class DragTest : public BehaviourTest {
protected:
    void SetUp() override {
        BehaviourTest::SetUp();
        Set("Autodock", 1);
    }

    // Takes the window through all steps of a road, slowly or in leaps.
    static void Walk(const Sample& frame, const Road& road, bool slowly) {
        SetWindowPos(frame.window, HWND_TOP, road.start.x, road.start.y, Width, Height, SWP_NOACTIVATE);
        ASSERT_TRUE(BecomesPlaced(frame.window, At(road.start)));
        // Elsewhere on the caption than the time before, for else the two would be a double-click.
        POINT grip = CaptionOf(frame.window);
        grip.x += slowly ? 20 : 0;
        Drag drag(frame.window, grip);
        ASSERT_TRUE(drag.Began());
        for (const Step& step : road.steps) {
            if (slowly)
                drag.SlowlyTo(step.cursor.x, step.cursor.y);
            else
                drag.To(step.cursor.x, step.cursor.y);
            EXPECT_TRUE(BecomesPlaced(frame.window, At(step.corner))) << step.cursor.x << "," << step.cursor.y;
        }
        drag.Drop();
        EXPECT_TRUE(BecomesPlaced(frame.window, At(road.steps.back().corner))) << "dropped";
        EXPECT_EQ(Ask(frame.window, frame::HasOwnProcedure), 1);
    }
};

TEST_F(DragTest, DocksAtInnerBordersOnly) {
    for (const Road& road : Roads) {
        ASSERT_TRUE(Arrange(road.displays())) << Describe(PresentDisplays());
        StartLoader();
        const Sample frame = OpenFrame("Dragged");
        ASSERT_TRUE(WindowsBecome(0, 1));
        for (const bool slowly : {false, true}) {
            SCOPED_TRACE(std::string(road.name) + (slowly ? ", slowly" : ", in leaps"));
            Walk(frame, road, slowly);
        }
        Close(frame);
        QuitLoader();
    }
}

TEST_F(DragTest, LeavesAloneWhatIsOff) {
    Set("Autodock", 0);
    StartLoader();
    const Sample frame = OpenFrame("Free", "--at 600,100,300,240");
    ASSERT_TRUE(WindowsBecome(0, 1));
    Drag drag(frame.window);
    drag.SlowlyTo(200, 0);
    EXPECT_TRUE(BecomesPlaced(frame.window, At({800, 100})));
    EXPECT_EQ(Ask(frame.window, frame::HasOwnProcedure), 1) << "no watch";
}

}  // namespace

}  // namespace halyard::test
