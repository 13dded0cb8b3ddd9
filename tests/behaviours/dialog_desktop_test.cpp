// Where dialogs of foreign programs come up.
#include "support/behaviour_fixture.h"

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
    HWND box = nullptr;
    ASSERT_TRUE(Eventually([&] { return (box = FindWindowA("#32770", "Notepad")) && IsWindowVisible(box); }));
    EXPECT_TRUE(BecomesPlaced(box, Centred(PlaceOf(box), SecondDisplay)));
}

}  // namespace

}  // namespace halyard::test
