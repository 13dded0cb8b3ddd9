// Windows of foreign programs over all displays: the ways there and back, and displays that come and go meanwhile.
#include "support/behaviour_fixture.h"

#include <memory>

namespace halyard::test {

namespace {

constexpr char Place[] = "--at 200,150,400,300";
constexpr RECT Start = {200, 150, 600, 450};
constexpr RECT BothDisplays = {-4, -4, 2052, 772};

void UseMenuKey(HWND window, const char* mnemonic) {
    ASSERT_TRUE(OpenSystemMenu(window));
    TapKey(mnemonic);
}
void DoubleClickCaption(HWND window) {
    DoubleClick(CaptionOf(window));
}
void ClickButton(HWND window) {
    // The second of the buttons that stand at the right end of the caption.
    Click({PlaceOf(window).right - GetSystemMetrics(SM_CXSIZEFRAME) - GetSystemMetrics(SM_CXSIZE) * 3 / 2,
           CaptionOf(window).y});
}

// What the user does to maximise and to restore: the menu, a double-click, the button. Commands of another program
// come where the displays change.
using Way = std::pair<void (*)(HWND window), void (*)(HWND window)>;
const Way Ways[] = {{[](HWND window) { UseMenuKey(window, "x"); }, [](HWND window) { UseMenuKey(window, "r"); }},
                    {DoubleClickCaption, DoubleClickCaption},
                    {ClickButton, ClickButton}};

class SpanningTest : public BehaviourTest {
protected:
    Sample Open(DWORD mode, const std::string& program = sample::File) {
        Set("CtrlMax", mode);
        StartLoader();
        const Sample frame = OpenFrame("Spanning", Place, CopyTo(ScratchFolder(), sample::File, program));
        EXPECT_TRUE(WindowsBecome(0, 1));
        EXPECT_TRUE(BringToFront(frame.window));
        return frame;
    }
};

TEST_F(SpanningTest, EveryWayThereAndBack) {
    const Sample frame = Open(2);
    for (std::size_t number = 0; number < 2 * std::size(Ways); ++number) {
        SCOPED_TRACE(number);
        ASSERT_TRUE(BringToFront(frame.window));
        Ways[number / 2].first(frame.window);
        ASSERT_TRUE(BecomesPlaced(frame.window, BothDisplays));
        EXPECT_TRUE(Eventually([&] { return IsZoomed(frame.window) != FALSE; }));
        Ways[(number + 1) / 2 % std::size(Ways)].second(frame.window);
        ASSERT_TRUE(BecomesPlaced(frame.window, Start));
    }
    EXPECT_EQ(Ask(frame.window, sample::CountMessage, WM_NCLBUTTONDBLCLK), 0);
}

TEST_F(SpanningTest, WithTheControlKeyOnly) {
    const Sample frame = Open(1);
    for (const bool held : {true, false})
        for (const auto& [maximise, restore] : {Ways[1], Ways[2]}) {
            ASSERT_TRUE(BringToFront(frame.window));
            const std::unique_ptr<HeldKey> control(held ? new HeldKey("ctrl") : nullptr);
            maximise(frame.window);
            ASSERT_TRUE(BecomesPlaced(frame.window, held ? BothDisplays : RECT{-4, -4, 1028, 772}));
            restore(frame.window);
            ASSERT_TRUE(BecomesPlaced(frame.window, Start));
        }
    EXPECT_EQ(Ask(frame.window, sample::CountMessage, WM_NCLBUTTONDBLCLK), 2)
        << "where nothing spans it is the program's";
}

TEST_F(SpanningTest, FollowsTheDisplays) {
    const Sample frame = Open(2);
    const std::pair<std::vector<Display>, RECT> changes[] = {{SideBySide(), BothDisplays},
                                                             {UnderTaskbars(), {-4, -4, 2052, 732}},
                                                             {ThreeInARow(), {-1028, -4, 2052, 772}},
                                                             {AbovePrimary(), {-4, -772, 1028, 772}},
                                                             {{SideBySide()[0]}, {-4, -4, 1028, 772}}};
    SetWindowPos(frame.window, nullptr, 1300, 150, 400, 300, SWP_NOZORDER);
    PostMessageA(frame.window, WM_SYSCOMMAND, SC_MAXIMIZE, 0);
    for (const auto& [displays, spanning] : changes) {
        ASSERT_TRUE(Arrange(displays)) << Describe(PresentDisplays());
        AnnounceDisplays();
        EXPECT_TRUE(BecomesPlaced(frame.window, spanning)) << Describe(displays);
    }
    Ask(frame.window, sample::ShowAs, SW_MINIMIZE);
    AnnounceDisplays();
    TellSettings(frame);
    EXPECT_TRUE(IsIconic(frame.window)) << "displays that change don't bring it up";
    PostMessageA(frame.window, WM_SYSCOMMAND, SC_RESTORE, 0);
    EXPECT_TRUE(BecomesPlaced(frame.window, changes[4].second)) << "it spans again";
    PostMessageA(frame.window, WM_SYSCOMMAND, SC_RESTORE, 0);
    EXPECT_TRUE(BecomesPlaced(frame.window, {624, 150, 1024, 450})) << "within reach, since its display has gone";
}

TEST_F(SpanningTest, InTheProgramThatKeepsTheStyleBitOut) {
    const Sample drawing = Open(2, "acad.exe");
    DoubleClickCaption(drawing.window);
    ASSERT_TRUE(BecomesPlaced(drawing.window, BothDisplays));
    // The window is placed first.
    EXPECT_TRUE(Eventually([&] { return !IsZoomed(drawing.window); }));
    // Wine sets the states of these items itself, but later than here, when the menu really opens.
    Ask(drawing.window, WM_INITMENUPOPUP, 0, MAKELPARAM(0, TRUE));
    const std::string menu = ReportOf(drawing, sample::ReportMenu);
    for (const char* line : {"61728 \"&Restore\" bold\n", "61456 \"&Move\" grey\n", "61488 \"Ma&ximize\" grey\n"})
        EXPECT_NE(menu.find(line), std::string::npos) << line << " isn't in\n" << menu;
    DoubleClickCaption(drawing.window);
    EXPECT_TRUE(BecomesPlaced(drawing.window, Start));
}

}  // namespace

}  // namespace halyard::test
