// Windows of foreign programs over all displays: the ways there and back, and displays that come and go meanwhile.
#include "support/behaviour_fixture.h"

#include <optional>

namespace halyard::test {

namespace {

constexpr char Place[] = "--at 200,150,400,300";
constexpr RECT Start = {200, 150, 600, 450};
constexpr RECT OneDisplay = {-4, -4, 1028, 772};
constexpr RECT BothDisplays = {-4, -4, 2052, 772};

bool HasStyle(HWND window, LONG style) {
    return (GetWindowLongA(window, GWL_STYLE) & style) != 0;
}

void UseMenuKey(HWND window, const char* mnemonic) {
    ASSERT_TRUE(OpenSystemMenu(window));
    TapKey(mnemonic);
}

// What the user does to maximise and to restore.
struct Way {
    const char* name;
    void (*maximise)(HWND window);
    void (*restore)(HWND window);
};

const Way Ways[] = {
    {"menu", [](HWND window) { UseMenuKey(window, "x"); }, [](HWND window) { UseMenuKey(window, "r"); }},
    {"double-click", [](HWND window) { DoubleClick(CaptionOf(window)); },
     [](HWND window) { DoubleClick(CaptionOf(window)); }},
    {"button", [](HWND window) { Click(MaximiseButtonOf(window)); },
     [](HWND window) { Click(MaximiseButtonOf(window)); }},
    {"commands of another program", [](HWND window) { PostMessageA(window, WM_SYSCOMMAND, SC_MAXIMIZE, 0); },
     [](HWND window) { PostMessageA(window, WM_SYSCOMMAND, SC_RESTORE, 0); }},
};

class SpanningTest : public BehaviourTest {
protected:
    Sample Open(const std::string& title, const std::string& place = Place) {
        StartLoader();
        const Sample frame = OpenFrame(title, place);
        EXPECT_TRUE(WindowsBecome(0, 1));
        EXPECT_TRUE(BringToFront(frame.window));
        return frame;
    }
    static void Span(const Sample& frame) { PostMessageA(frame.window, WM_SYSCOMMAND, SC_MAXIMIZE, 0); }
    static void Restore(const Sample& frame) { PostMessageA(frame.window, WM_SYSCOMMAND, SC_RESTORE, 0); }
};

TEST_F(SpanningTest, EveryWayThereAndBack) {
    Set("CtrlMax", 2);
    const Sample frame = Open("Always");
    for (std::size_t number = 0; number < 2 * std::size(Ways); ++number) {
        const Way& there = Ways[number / 2];
        const Way& back = Ways[(number + 1) / 2 % std::size(Ways)];
        SCOPED_TRACE(std::string("by ") + there.name + ", back by " + back.name);
        ASSERT_TRUE(BringToFront(frame.window));
        there.maximise(frame.window);
        ASSERT_TRUE(BecomesPlaced(frame.window, BothDisplays));
        EXPECT_TRUE(Eventually([&] { return IsZoomed(frame.window) != FALSE; }));
        back.restore(frame.window);
        ASSERT_TRUE(BecomesPlaced(frame.window, Start));
        EXPECT_FALSE(IsZoomed(frame.window));
    }
}

TEST_F(SpanningTest, WithTheControlKeyOnlyOrNever) {
    for (const DWORD mode : {0u, 1u}) {
        Set("CtrlMax", mode);
        const Sample frame = Open("Control");
        for (const Way& way : {Ways[1], Ways[2]})
            for (const bool held : {false, true}) {
                SCOPED_TRACE(testing::Message() << way.name << " in mode " << mode << (held ? " with Control" : ""));
                ASSERT_TRUE(BringToFront(frame.window));
                {
                    std::optional<HeldKey> control;
                    if (held) control.emplace("ctrl");
                    way.maximise(frame.window);
                    ASSERT_TRUE(BecomesPlaced(frame.window, held && mode == 1 ? BothDisplays : OneDisplay));
                }
                way.restore(frame.window);
                ASSERT_TRUE(BecomesPlaced(frame.window, Start));
            }
        Close(frame);
        QuitLoader();
    }
}

TEST_F(SpanningTest, FollowsTheDisplays) {
    struct Change {
        std::vector<Display> displays;
        RECT spanning;
    };
    const Change changes[] = {{UnderTaskbars(), {-4, -4, 2052, 732}},
                              {ThreeInARow(), {-1028, -4, 2052, 772}},
                              {AbovePrimary(), {-4, -772, 1028, 772}},
                              {{SideBySide()[0]}, {-4, -4, 1028, 772}},
                              {SideBySide(), BothDisplays}};
    Set("CtrlMax", 2);
    const Sample frame = Open("Following");
    Span(frame);
    ASSERT_TRUE(BecomesPlaced(frame.window, BothDisplays));
    for (const auto& [displays, spanning] : changes) {
        ASSERT_TRUE(Arrange(displays)) << Describe(PresentDisplays());
        AnnounceDisplays();
        EXPECT_TRUE(BecomesPlaced(frame.window, spanning)) << Describe(displays);
        EXPECT_TRUE(Eventually([&] { return IsZoomed(frame.window) != FALSE; }));
    }
    Restore(frame);
    EXPECT_TRUE(BecomesPlaced(frame.window, Start)) << "the place from before all changes";
}

TEST_F(SpanningTest, ReturnsWithinReachWhenItsDisplayHasGone) {
    Set("CtrlMax", 2);
    const Sample frame = Open("Homeless", "--at 1300,150,400,300");
    Span(frame);
    ASSERT_TRUE(BecomesPlaced(frame.window, BothDisplays));
    ASSERT_TRUE(Arrange({SideBySide()[0]})) << Describe(PresentDisplays());
    AnnounceDisplays();
    ASSERT_TRUE(BecomesPlaced(frame.window, {-4, -4, 1028, 772}));
    Restore(frame);
    EXPECT_TRUE(BecomesPlaced(frame.window, {624, 150, 1024, 450}));
}

// The buttons at the right end of the caption, as they show on the screen.
std::vector<COLORREF> ButtonsOf(HWND window) {
    const POINT button = MaximiseButtonOf(window);
    const HDC screen = GetDC(nullptr);
    std::vector<COLORREF> pixels;
    for (int y = button.y - 8; y < button.y + 8; ++y)
        for (int x = button.x - 8; x < button.x + 8; ++x)
            pixels.push_back(GetPixel(screen, x, y));
    ReleaseDC(nullptr, screen);
    return pixels;
}

TEST_F(SpanningTest, InTheProgramThatKeepsTheStyleBitOut) {
    Set("CtrlMax", 2);
    StartLoader();
    const Sample other = OpenFrame("Other", Place);
    Span(other);
    ASSERT_TRUE(BecomesPlaced(other.window, BothDisplays));
    ASSERT_TRUE(BringToFront(other.window));
    const std::vector<COLORREF> restoreButton = ButtonsOf(other.window);
    Close(other);

    const Sample drawing = OpenFrameAs("acad.exe", "Drawing", Place);
    ASSERT_TRUE(BringToFront(drawing.window));
    EXPECT_NE(ButtonsOf(drawing.window), restoreButton);
    DoubleClick(CaptionOf(drawing.window));
    ASSERT_TRUE(BecomesPlaced(drawing.window, BothDisplays));
    EXPECT_TRUE(Eventually([&] { return ButtonsOf(drawing.window) == restoreButton; })) << "looks as if maximised";
    // By the buttons, the caption is painted with the bit set for that long.
    MoveMouse({1500, CaptionOf(drawing.window).y});
    EXPECT_EQ(Ask(drawing.window, WM_NULL), 0);
    EXPECT_FALSE(HasStyle(drawing.window, WS_MAXIMIZE));

    // The runtime sets the states of these items itself, but later than here, when the menu really opens.
    Ask(drawing.window, WM_INITMENUPOPUP, 0, MAKELPARAM(0, TRUE));
    const std::string menu = ReportOf(drawing, frame::ReportMenu);
    for (const char* line : {"61728 \"&Restore\" bold\n", "61456 \"&Move\" grey\n", "61440 \"&Size\" grey\n",
                             "61488 \"Ma&ximize\" grey\n"})
        EXPECT_NE(menu.find(line), std::string::npos) << line << " isn't in\n" << menu;

    DoubleClick(CaptionOf(drawing.window));
    EXPECT_TRUE(BecomesPlaced(drawing.window, Start));
    EXPECT_FALSE(HasStyle(drawing.window, WS_MAXIMIZE));
}

}  // namespace

}  // namespace halyard::test
