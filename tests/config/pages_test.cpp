// The pages by mouse and keyboard, and what becomes of them elsewhere.
#include "config/sheet_fixture.h"

#include <commctrl.h>

namespace halyard::test {

namespace {

class PagesTest : public SheetTest {
protected:
    void TearDown() override {
        SheetTest::TearDown();
        DeleteKey(published::ProductKey, HKEY_LOCAL_MACHINE);
    }
    // Types letters into the row of the list that has begun to be edited.
    void NameRow(const std::string& keys) {
        const auto edit = [&] { return reinterpret_cast<HWND>(Ask(Control(IDC_DESKTOP_LIST), LVM_GETEDITCONTROL)); };
        ASSERT_TRUE(Eventually([&] { return edit() && edit() == ThreadOf(SheetWindow()).hwndFocus; }))
            << "no row is being edited";
        TapKey(keys + " Return");
        ASSERT_TRUE(Eventually([&] { return !edit(); })) << "still editing";
        ASSERT_NE(SheetWindow(), nullptr) << "the key that ended the name closed the sheet";
    }
    // Has the running program sent to desktop 2, as its menu does.
    static void SendAway(const Sample& sample) { PostMessageA(sample.window, WM_SYSCOMMAND, 64780, 0); }
};

TEST_F(PagesTest, ChoicesReachStoreProgramsAndTheNextSheet) {
    StartLoader();
    const Sample frame = OpenFrame("Witness");
    const auto hasExtension = [&] { return ReportOf(frame, sample::ReportMenu).find("64766") != std::string::npos; };
    ASSERT_TRUE(hasExtension());
    OpenSheet(WindowsTab);
    ASSERT_TRUE(Becomes(IDC_WITH_CONTROL, false) && !CanApply());
    constexpr int Boxes[] = {IDC_SYSTEM_MENU,  IDC_WINDOW_MEMORY,   IDC_AUTODOCK,    IDC_MAXIMISE_ACROSS,
                             IDC_WITH_CONTROL, IDC_DIALOGS_CENTRED, IDC_TRANSPARENCY};
    for (const int box : Boxes)
        ClickControl(box);
    ASSERT_TRUE(Becomes(IDC_DIALOGS_WHERE, true));
    Focus(IDC_DIALOGS_WHERE);
    TapKey("End");  // the second display
    EXPECT_TRUE(Eventually([&] { return Ask(Control(IDC_DIALOGS_WHERE), CB_GETCURSEL) == 4; }));
    Focus(IDC_OPACITY);
    TapKey("Home Right");
    EXPECT_TRUE(Eventually([&] { return CanApply() && Ask(Control(IDC_OPACITY), TBM_GETPOS) == 1; }));
    const auto stored = [](const char* value) { return NumberOr(published::ProductKey, value, 0xDEAD); };
    EXPECT_EQ(stored("CtrlMax"), 0u) << "nothing is written before Apply";
    Press(ApplyButton);
    EXPECT_TRUE(Eventually([&] { return !hasExtension(); })) << "the running program keeps the menu extension";
    ClickControl(IDC_DIALOGS_DEFAULT);
    ASSERT_TRUE(Becomes(IDC_DIALOGS_WHERE, false));
    Press(IDCANCEL);
    OpenSheet(TaskbarsTab);
    ASSERT_TRUE(Becomes(IDC_ALL_TASKS, false));
    for (const int box : {IDC_TASKBARS, IDC_ALL_TASKS, IDC_MIRROR})
        ClickControl(box);
    Press(IDOK);
    // Each value that the sheet writes comes back under the name that others know.
    std::string written;
    for (const char* value :
         {"ExtendSysMenu", "WindowMem", "Autodock", "CtrlMax", "DialogControl", "DialogMonitor", "DragTrans",
          "DragTransPerCent", "TaskbarsEnable", "TaskbarsShowAllTasks", "TaskswitchMirrorEnable"})
        written += std::to_string(stored(value));
    EXPECT_EQ(written, "01113211111");
    QuitLoader();
    StartLoader();
    OpenSheet(WindowsTab);
    for (const int box : Boxes)
        EXPECT_EQ(Ask(Control(box), BM_GETCHECK), box == IDC_SYSTEM_MENU ? BST_UNCHECKED : BST_CHECKED) << box;
    EXPECT_EQ(Ask(Control(IDC_DIALOGS_WHERE), CB_GETCURSEL), 4);
    EXPECT_EQ(Ask(Control(IDC_OPACITY), TBM_GETPOS), 1);
}

TEST_F(PagesTest, DesktopsAreAddedNamedRemovedAndActivated) {
    const Sample onOne = StartWithSample("On one");
    OpenSheet(DesktopsTab);
    SelectRow(IDC_DESKTOP_LIST, 1);
    Assign(onOne.window, 1);
    ASSERT_TRUE(BecomesHidden(onOne.window));
    ClickControl(IDC_ACTIVATE_DESKTOP);
    ASSERT_TRUE(DesktopBecomes(1));
    EXPECT_TRUE(BecomesVisible(onOne.window));
    EXPECT_TRUE(Becomes(IDC_ACTIVATE_DESKTOP, false) && !CanApply()) << "at once, without Apply";
    SelectRow(IDC_DESKTOP_LIST, 0);
    EXPECT_TRUE(Becomes(IDC_REMOVE_DESKTOP, false));
    TapKey("F2");
    EXPECT_EQ(Ask(Control(IDC_DESKTOP_LIST), LVM_GETEDITCONTROL), 0) << "the default desktop keeps its name";
    ClickControl(IDC_ADD_DESKTOP);
    NameRow("w e b");
    SelectRow(IDC_DESKTOP_LIST, 2);
    TapKey("F2");
    NameRow("m a i l");
    EXPECT_EQ(TextOf(DesktopKey(2), nullptr), "Two") << "nothing is written before Apply";
    Press(ApplyButton);
    EXPECT_EQ(TextOf(DesktopKey(2), nullptr), "mail");
    EXPECT_EQ(Status("desktop 3"), "\"web\", 0 windows");

    // A row that goes before Apply leaves no trace. A new row may get the number of one that has gone, not its windows.
    SelectRow(IDC_DESKTOP_LIST, 1);
    ClickControl(IDC_REMOVE_DESKTOP);
    for (const char* name : {"n e w", "l a t e"}) {
        ClickControl(IDC_ADD_DESKTOP);
        NameRow(name);
    }
    SelectRow(IDC_DESKTOP_LIST, 4);
    ClickControl(IDC_REMOVE_DESKTOP);
    Press(IDOK);
    ASSERT_TRUE(DesktopBecomes(0));
    EXPECT_TRUE(BecomesVisible(onOne.window));
    EXPECT_TRUE(WindowsBecome(0, 1));
    EXPECT_EQ(TextOf(DesktopKey(1), nullptr), "new");
    EXPECT_EQ(TextOf(DesktopKey(4), nullptr), "");

    // Off, the desktops give back what they hide, and nothing can be sent away for good; on, running programs know.
    Assign(onOne.window, 1);
    ASSERT_TRUE(BecomesHidden(onOne.window));
    OpenSheet(DesktopsTab);
    for (const bool on : {false, true}) {
        ClickControl(IDC_MULTI_DESK);
        Press(ApplyButton);
        EXPECT_TRUE(BecomesVisible(onOne.window));
        SendAway(onOne);
        EXPECT_TRUE(on ? BecomesHidden(onOne.window) : StaysVisible(onOne.window));
    }
}

TEST_F(PagesTest, WhatWasNotLoadedIsNotSaved) {
    const std::string binding("\1\1\0\0Q", 5);
    StoreBinding("4", binding);
    Set("Run", 0);
    StartLoader();
    OpenSheet(HotkeysTab);
    EXPECT_TRUE(Becomes(IDC_HOTKEY_LIST, false)) << "the system is off";
    Press(IDOK);
    EXPECT_EQ(StoredBinding("4"), binding);
    OpenSheet(WindowsTab);
    for (const bool on : {true, false}) {
        Loader(on ? "--enable" : "--disable");
        EXPECT_TRUE(Becomes(IDC_AUTODOCK, on));
    }
    TapKey("Escape");
    EXPECT_TRUE(Eventually([&] { return !SheetWindow(); })) << "keys go to a control that was turned grey";
}

// Settings of the whole machine, and an administrator and a user who isn't one.
TEST_F(PagesTest, WhoMayNotChangeAnythingSeesAndUsesIt) {
    for (const char* value : {"Run", "RunWizard", "MultiDesk"})
        WriteNumber(published::ProductKey, value, 1, HKEY_LOCAL_MACHINE);
    WriteText(DesktopKey(5), nullptr, "Five", HKEY_LOCAL_MACHINE);
    StoreBinding("1073741829", std::string("\0\1\1\0T", 5), HKEY_LOCAL_MACHINE);
    StartLoader();
    OpenSheet(DesktopsTab);
    EXPECT_TRUE(Becomes(IDC_MULTI_DESK, true));
    QuitLoader();
    ASSERT_EQ(children.Run("\"" + folder + "ordinary_user.exe\" \"" + folder + "tvlhload.exe\"").status, 0u);
    ASSERT_TRUE(Eventually([] { return FindWindowA(published::LoaderClass, nullptr) != nullptr; }));
    OpenSheet(HotkeysTab);
    EXPECT_TRUE(Becomes(IDC_HOTKEY_LIST, false));
    TapKey("ctrl+shift+t");
    EXPECT_TRUE(DesktopBecomes(5)) << "who can't set hotkeys here uses them";
    OpenSheet(DesktopsTab);
    EXPECT_TRUE(Becomes(IDC_MULTI_DESK, false) && Becomes(IDC_DESKTOP_LIST, true));
    Press(IDOK);
    EXPECT_EQ(Status("desktop 5"), "\"Five\", 0 windows");
}

TEST_F(PagesTest, OneSheetWhereItIsAskedFor) {
    StartLoader();
    MoveMouse({1500, 300});
    Loader("--config 0 --config 2 --config 1");
    ASSERT_TRUE(Eventually([&] { return Control(IDC_TASKBARS) != nullptr; })) << "the last page asked for should show";
    EXPECT_NEAR(MiddleOf(SheetWindow()).x, 1024 + 512, 2) << "not on the display where it was asked for";
    // A right click and its only item explain the control, and why it is grey.
    ASSERT_TRUE(BringToFront(SheetWindow()));
    const RECT grey = PlaceOf(Control(IDC_ALL_TASKS));
    RightClick({grey.left + 30, grey.top + 5});
    ASSERT_TRUE(EntersLoop(SheetWindow(), GUI_INMENUMODE));
    TapKey("Down Return");
    EXPECT_TRUE(Eventually([&] {
        for (HWND window : TopLevelWindows())
            if (IsWindowVisible(window) && TextOf(window).find("no taskbars") != std::string::npos) return true;
        return false;
    }));
    TapKey("space");
    Loader("--quit");
    EXPECT_TRUE(loader->Ends(WaitLimit)) << "the server's end closes what is open";
}

}  // namespace

}  // namespace halyard::test
