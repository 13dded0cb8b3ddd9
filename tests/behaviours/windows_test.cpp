// Menus, places and dialogs of foreign programs.
#include "support/behaviour_fixture.h"

#include <shlwapi.h>

namespace halyard::test {

namespace {

constexpr char Place[] = "--at 100,100,400,300";
constexpr RECT Start = {100, 100, 500, 400};
constexpr RECT Kept = {1200, 150, 1700, 600};

class SystemMenuTest : public BehaviourTest {
protected:
    // Chooses the items of these ids one after the other, the first in the system menu.
    static void Choose(const Sample& frame, const std::vector<UINT>& ids) {
        ASSERT_TRUE(OpenSystemMenu(frame.window));
        for (const UINT id : ids) {
            LRESULT spot = 0;
            ASSERT_TRUE(Eventually([&] { return (spot = Ask(frame.window, sample::ItemPlace, id)) != 0; })) << id;
            Click({static_cast<short>(LOWORD(spot)), static_cast<short>(HIWORD(spot))});
        }
        EXPECT_TRUE(LeavesLoop(frame.window, GUI_INMENUMODE));
    }
    // The extension as it is once it was opened, from its separator on.
    static std::string Opened(const Sample& frame) {
        EXPECT_TRUE(OpenSystemMenu(frame.window));
        TapKey("Up Right");
        // What was there before is told until the extension has opened.
        const auto isOpen = [] { return FindWindowExA(nullptr, FindWindowA("#32768", nullptr), "#32768", nullptr); };
        EXPECT_TRUE(Eventually([&] { return isOpen() != nullptr; }));
        const std::string menu = ReportOf(frame, sample::ReportMenu);
        // One for each menu that is open, and one for the bar.
        TapKey("Escape Escape Escape Escape");
        EXPECT_TRUE(LeavesLoop(frame.window, GUI_INMENUMODE));
        return menu.substr(menu.find("64765 "));
    }
};

TEST_F(SystemMenuTest, ShowsAndDoesWhatItSays) {
    WriteText(DesktopKey(2), nullptr, "R&D");
    Set("WindowMem", 1);
    StartLoader();
    const Sample frame = OpenFrame("Chosen", Place);
    ASSERT_TRUE(WindowsBecome(0, 1));
    const auto menu = [](const char* memory, const char* dock, const char* top, const char* desktops, const char* all) {
        const std::string here = *all ? "" : " checked";
        return std::string("64765 ----\n64766 \"Tevral\"\n  64767 \"Window Memory\"") + memory +
               "\n  64768 \"Automatic Dock\"" + dock + "\n  64769 \"Always on top\"" + top +
               "\n  0 ----\n  64770 \"Move to other display\"\n  64776 \"Move to desktop \"" + desktops +
               "\n    64778 \"Default\"" + here +
               "\n    64779 \"One\"\n    64780 \"R&&D\"\n    0 ----\n    64777 \"All\"" + all + "\n";
    };
    EXPECT_EQ(Opened(frame), menu("", "", "", "", ""));
    const std::string key = ProgramKey(BinFolder() + sample::File);
    for (const UINT item : {64767u, 64768u, 64769u})
        Choose(frame, {64766, item});
    EXPECT_EQ(NumberOr(key, "WindowMem", 99), 1u);
    EXPECT_EQ(NumberOr(key, "Autodock", 99), 1u);
    EXPECT_TRUE(Eventually([&] { return IsTopmost(frame.window); }));
    Choose(frame, {64766, 64776, 64777});
    EXPECT_TRUE(WindowsBecome(published::AllDesktops, 1));
    EXPECT_EQ(Opened(frame), menu(" checked", " checked", " checked", "", " checked"));
    Choose(frame, {64766, 64776, 64779});
    EXPECT_TRUE(BecomesHidden(frame.window));
    Switch(1);
    ASSERT_TRUE(BecomesVisible(frame.window));
    Choose(frame, {64766, 64770});
    EXPECT_TRUE(BecomesPlaced(frame.window, {1124, 100, 1524, 400}));
    Set("MultiDesk", 0);
    TellSettings(frame);
    EXPECT_NE(Opened(frame).find("\"Move to desktop \" grey"), std::string::npos);
    PostMessageA(frame.window, WM_SYSCOMMAND, 64780, 0);
    EXPECT_TRUE(StaysVisible(frame.window)) << "there would be no way back";
}

class WindowMemoryTest : public BehaviourTest {
protected:
    void SetUp() override {
        BehaviourTest::SetUp();
        Set("WindowMem", 1);
        Set("CtrlMax", 2);
        WriteNumber(key, "WindowMem", 1);
        StartLoader();
    }
    // One run of the program; its windows start at `Start`.
    Sample Reopen() { return OpenFrame("Remembered", Place); }
    const std::string key = ProgramKey(BinFolder() + sample::File);
};

TEST_F(WindowMemoryTest, OverThreeRuns) {
    const struct {
        void (*change)(HWND window);
        RECT place;
    } runs[] = {
        {[](HWND) {}, Kept},
        {[](HWND window) { Ask(window, sample::ShowAs, SW_MINIMIZE); }, Kept},
        {[](HWND window) { Ask(window, sample::ShowAs, SW_MAXIMIZE); }, {1020, -4, 2052, 772}},
        {[](HWND window) { PostMessageA(window, WM_SYSCOMMAND, SC_MAXIMIZE, 0); }, {-4, -4, 2052, 772}},
    };
    Sample run = Reopen();
    EXPECT_TRUE(BecomesPlaced(run.window, Start)) << "nothing is remembered yet";
    SetWindowPos(run.window, HWND_TOPMOST, 1200, 150, 500, 450, SWP_NOACTIVATE);
    for (const auto& [change, place] : runs) {
        change(run.window);
        ASSERT_TRUE(IsIconic(run.window) || BecomesPlaced(run.window, place));
        Close(run);
        run = Reopen();
        EXPECT_TRUE(BecomesPlaced(run.window, place));
        EXPECT_TRUE(Eventually([&] { return IsTopmost(run.window); }));
        if (IsZoomed(run.window)) PostMessageA(run.window, WM_SYSCOMMAND, SC_RESTORE, 0);
        EXPECT_TRUE(BecomesPlaced(run.window, Kept));
    }
    Close(run);
    run = Reopen();
    // A second window of the class stands a step aside.
    const Sample second = Reopen();
    const int step = GetSystemMetrics(SM_CYCAPTION) + GetSystemMetrics(SM_CYEDGE);
    EXPECT_TRUE(BecomesPlaced(second.window, {1200 + step, 150 + step, 1700 + step, 600 + step}));
    Close(second);
    Close(run);
    // Without its display it comes within reach.
    ASSERT_TRUE(Arrange({SideBySide()[0]})) << Describe(PresentDisplays());
    EXPECT_TRUE(BecomesPlaced(Reopen().window, {524, 150, 1024, 600}));
}

TEST_F(WindowMemoryTest, BringsTheDesktopWithTheWindow) {
    const Sample witness =
        OpenFrame("Witness", "--at 20,500,200,150", CopyTo(ScratchFolder(), sample::File, "witness.exe"));
    for (const auto& [stored, used] : {std::pair{2, 2}, {7, 0}, {published::AllDesktops, published::AllDesktops}}) {
        WriteNumber(key, "Desktop", static_cast<DWORD>(stored));
        const Sample run = Reopen();
        EXPECT_TRUE(WindowsBecome(used, used == 0 ? 2 : 1));
        EXPECT_TRUE(used == 2 ? BecomesHidden(witness.window) : StaysVisible(witness.window)) << stored;
        EXPECT_TRUE(StaysVisible(run.window));
        EXPECT_EQ(Ask(run.window, sample::CountHides), 0) << "it never went away";
        Close(run);
        EXPECT_EQ(NumberOr(key, "Desktop", 99), static_cast<DWORD>(used));
        Switch(0);
    }
}

using DialogTest = BehaviourTest;

TEST_F(DialogTest, GoWhereTheUserWantsThem) {
    constexpr POINT OnFirst = {20, 20}, OnSecond = {1100, 40}, First = {512, 384}, Second = {1536, 384};
    constexpr struct {
        DWORD mode, display;
        sample::Owner owner;
        POINT opened, middle;  // 0: it stays where it was opened
    } Cases[] = {{0, 2, sample::VisibleOwner, OnSecond, {}},    {1, 2, sample::VisibleOwner, OnSecond, {300, 250}},
                 {1, 1, sample::HiddenOwner, OnSecond, Second}, {1, 1, sample::NoOwner, OnSecond, Second},
                 {2, 2, sample::VisibleOwner, OnFirst, First},  {3, 2, sample::VisibleOwner, OnFirst, Second},
                 {3, 3, sample::VisibleOwner, OnFirst, {}},     {4, 1, sample::VisibleOwner, OnFirst, Second}};
    MoveMouse({1500, 700});
    StartLoader();
    const Sample frame = OpenFrame("Owner", Place);
    ASSERT_TRUE(WindowsBecome(0, 1));
    for (const auto& [mode, display, owner, opened, middle] : Cases) {
        Set("DialogControl", mode);
        Set("DialogMonitor", display);
        TellSettings(frame);
        const auto dialog =
            reinterpret_cast<HWND>(Ask(frame.window, sample::OpenDialog, owner, MAKELONG(opened.x, opened.y)));
        const POINT wanted = middle.x ? middle : MiddleOf(dialog);
        Ask(dialog, sample::ShowAs, SW_SHOW);
        EXPECT_NEAR(MiddleOf(dialog).x, wanted.x, 1) << "mode " << mode << ", owner " << owner;
        EXPECT_NEAR(MiddleOf(dialog).y, wanted.y, 1);
        // Once in its life: what the user does then stays.
        SetWindowPos(dialog, nullptr, 640, 500, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        Ask(frame.window, sample::Activate);
        Ask(dialog, sample::Activate);
        EXPECT_EQ(PlaceOf(dialog).left, 640);
        Ask(dialog, WM_CLOSE);
    }
}

}  // namespace

}  // namespace halyard::test
