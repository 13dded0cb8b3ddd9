// Where dialogs of foreign programs come up.
#include "desktop_behaviours/behaviour_fixture.h"

namespace halyard::test {

namespace {

constexpr RECT FirstDisplay = {0, 0, 1024, 768};
constexpr RECT SecondDisplay = {1024, 0, 2048, 768};
constexpr RECT Frame = {300, 200, 700, 500};
constexpr char FramePlace[] = "--at 300,200,400,300";
constexpr POINT OnFirst = {20, 20};
constexpr POINT OnSecond = {1100, 40};

RECT Moved(const RECT& rect, POINT corner) {
    return {corner.x, corner.y, corner.x + rect.right - rect.left, corner.y + rect.bottom - rect.top};
}

RECT Centred(const RECT& rect, const RECT& target) {
    return Moved(rect, {target.left + (target.right - target.left) / 2 - (rect.right - rect.left) / 2,
                        target.top + (target.bottom - target.top) / 2 - (rect.bottom - rect.top) / 2});
}

struct Case {
    const char* name;
    DWORD mode;
    DWORD display;
    frame::Owner owner;
    POINT opened;
    const RECT* target;  // null: stays where it was opened
};

const Case Cases[] = {
    {"left alone", 0, 2, frame::VisibleOwner, OnSecond, nullptr},
    {"over its program", 1, 2, frame::VisibleOwner, OnSecond, &Frame},
    {"over a hidden owner: its own display", 1, 1, frame::HiddenOwner, OnSecond, &SecondDisplay},
    {"over no owner: its own display", 1, 1, frame::NoOwner, OnSecond, &SecondDisplay},
    {"its own display, first", 2, 2, frame::VisibleOwner, OnFirst, &FirstDisplay},
    {"its own display, second", 2, 1, frame::VisibleOwner, OnSecond, &SecondDisplay},
    {"display 1", 3, 1, frame::VisibleOwner, OnSecond, &FirstDisplay},
    {"display 2", 3, 2, frame::VisibleOwner, OnFirst, &SecondDisplay},
    {"display 3, which there isn't", 3, 3, frame::VisibleOwner, OnFirst, nullptr},
    {"display 0, which there never is", 3, 0, frame::VisibleOwner, OnFirst, nullptr},
    {"the cursor's display", 4, 1, frame::VisibleOwner, OnFirst, &SecondDisplay},
    {"an unknown mode", 5, 1, frame::VisibleOwner, OnSecond, nullptr},
};

class DialogTest : public BehaviourTest {
protected:
    void SetUp() override {
        BehaviourTest::SetUp();
        MoveMouse({1500, 700});
        StartLoader();
    }
    static void Choose(const Sample& witness, DWORD mode, DWORD display) {
        Set("DialogControl", mode);
        Set("DialogMonitor", display);
        TellSettings(witness);
    }
    // The message box that the program has open.
    static HWND BoxOf(const Sample& program, const std::string& title) {
        HWND box = nullptr;
        EXPECT_TRUE(Eventually([&] {
            box = WindowOf(program.program->Id(), title);
            return box && IsWindowVisible(box);
        })) << "no box";
        return box;
    }
};

TEST_F(DialogTest, GoWhereTheUserWantsThem) {
    const Sample frame = OpenFrame("Owner", FramePlace);
    ASSERT_TRUE(WindowsBecome(0, 1));
    for (const Case& test : Cases) {
        SCOPED_TRACE(test.name);
        Choose(frame, test.mode, test.display);
        const HWND dialog = OpenDialog(frame, test.owner, test.opened);
        const RECT opened = PlaceOf(dialog);
        ASSERT_EQ(opened.left, test.opened.x) << Describe(dialog);
        Ask(dialog, sample::ShowAs, SW_SHOW);
        EXPECT_TRUE(BecomesPlaced(dialog, test.target ? Centred(opened, *test.target) : opened));

        // Once in its life: what the user does then stays.
        SetWindowPos(dialog, nullptr, 640, 500, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        Ask(frame.window, frame::Activate);
        Ask(dialog, frame::Activate);
        EXPECT_TRUE(BecomesPlaced(dialog, Moved(opened, {640, 500})));
        Ask(dialog, WM_CLOSE);
    }
}

TEST_F(DialogTest, LargerThanTheirProgramKeepTheirTopLeftCornerOverIt) {
    const Sample frame = OpenFrame("Small", "--at 1200,300,130,60");
    ASSERT_TRUE(WindowsBecome(0, 1));
    Choose(frame, 1, 1);
    const RECT small = PlaceOf(frame.window);
    const HWND dialog = OpenDialog(frame, frame::VisibleOwner, OnFirst);
    Ask(dialog, sample::ShowAs, SW_SHOW);
    EXPECT_TRUE(BecomesPlaced(dialog, Moved(PlaceOf(dialog), {small.left, small.top})));
}

TEST_F(DialogTest, StayInWorkAreas) {
    ASSERT_TRUE(Arrange(UnderTaskbars())) << Describe(PresentDisplays());
    const Sample frame = OpenFrame("Under taskbars", FramePlace);
    ASSERT_TRUE(WindowsBecome(0, 1));
    Choose(frame, 3, 2);
    const HWND dialog = OpenDialog(frame, frame::VisibleOwner, OnFirst);
    Ask(dialog, sample::ShowAs, SW_SHOW);
    EXPECT_TRUE(BecomesPlaced(dialog, Centred(PlaceOf(dialog), UnderTaskbars()[1].workArea)));
}

TEST_F(DialogTest, MessageBoxesOfASample) {
    const Sample frame = OpenFrame("Asking", FramePlace);
    ASSERT_TRUE(WindowsBecome(0, 1));
    const std::pair<frame::Owner, RECT> cases[] = {{frame::VisibleOwner, Frame}, {frame::HiddenOwner, FirstDisplay}};
    Choose(frame, 1, 1);
    for (const auto& [owner, target] : cases) {
        PostMessageA(frame.window, frame::OpenBox, owner, 0);
        const HWND box = BoxOf(frame, "Box");
        EXPECT_TRUE(BecomesPlaced(box, Centred(PlaceOf(box), target))) << "owner " << owner;
        PostMessageA(box, WM_CLOSE, 0, 0);
        ASSERT_TRUE(Eventually([&] { return !IsWindow(box); }));
    }
}

TEST_F(DialogTest, TheQuestionThatNotepadAsks) {
    Set("DialogControl", 3);
    Set("DialogMonitor", 2);
    const Sample notepad = OpenNotepad();
    ASSERT_TRUE(WindowsBecome(0, 1));
    SetWindowPos(notepad.window, HWND_TOP, Frame.left, Frame.top, 400, 300, 0);
    ASSERT_TRUE(BringToFront(notepad.window));
    TapKey("a");
    // By now the text is changed, and its program asks before it closes.
    ASSERT_TRUE(Eventually([&] { return Ask(FindWindowExA(notepad.window, nullptr, "Edit", nullptr), EM_GETMODIFY); }));
    TapKey("alt+F4");
    const HWND box = BoxOf(notepad, "Notepad");
    EXPECT_TRUE(BecomesPlaced(box, Centred(PlaceOf(box), SecondDisplay)));
}

// These programs are known by their file names. What is done in them otherwise shows in their dialogs' messages.
struct Treatment {
    const char* program;
    bool placedUnseen;  // at an activation before it is shown
    bool repainted;     // when it is placed
};

const Treatment Treatments[] = {
    {"other.exe", true, false},
    {"winproj.exe", true, true},
    {"my explorer.exe", true, true},
    {"corelpp.exe", false, false},
};

TEST_F(DialogTest, OfProgramsWithTreatmentOfTheirOwn) {
    const std::string copies = ScratchFolder();
    for (const auto& [program, placedUnseen, repainted] : Treatments) {
        SCOPED_TRACE(program);
        const Sample frame = OpenFrameFrom(CopyTo(copies, "sample_frame.exe", program), program, FramePlace);
        Choose(frame, 1, 1);
        // One that is active before it shows,
        HWND dialog = OpenDialog(frame, frame::VisibleOwner, OnFirst);
        const RECT opened = PlaceOf(dialog);
        const RECT centred = Centred(opened, Frame);
        Ask(dialog, frame::Activate);
        EXPECT_TRUE(BecomesPlaced(dialog, placedUnseen ? centred : opened));
        Ask(dialog, sample::ShowAs, SW_SHOW);
        EXPECT_TRUE(BecomesPlaced(dialog, centred));
        Ask(dialog, WM_CLOSE);

        // and one that shows before it is active.
        dialog = OpenDialog(frame, frame::VisibleOwner, {20, 400});
        Ask(dialog, sample::ShowAs, SW_SHOWNOACTIVATE);
        const auto painted = [&] { return Ask(dialog, sample::CountMessage, WM_ERASEBKGND); };
        ASSERT_TRUE(Eventually([&] { return painted() > 0 && !GetUpdateRect(dialog, nullptr, FALSE); }));
        const LRESULT before = painted();
        Ask(dialog, frame::Activate);
        ASSERT_TRUE(BecomesPlaced(dialog, centred));
        if (repainted)
            EXPECT_TRUE(Eventually([&] { return painted() > before; }));
        else
            EXPECT_EQ(painted(), before);
        Close(frame);
    }
}

}  // namespace

}  // namespace halyard::test
