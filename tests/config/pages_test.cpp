// The pages by mouse and keyboard, and what becomes of them elsewhere.
#include "config/sheet_fixture.h"

#include <commctrl.h>

namespace halyard::test {

namespace {

class PagesTest : public SheetTest {
protected:
    // Types letters into the row of the list that has begun to be edited.
    void NameRow(const std::string& keys) {
        const auto edit = [&] { return reinterpret_cast<HWND>(Ask(Control(IDC_DESKTOP_LIST), LVM_GETEDITCONTROL)); };
        ASSERT_TRUE(Eventually([&] { return edit() && edit() == ThreadOf(SheetWindow()).hwndFocus; }))
            << "no row is being edited";
        TapKey(keys + " Return");
        ASSERT_TRUE(Eventually([&] { return !edit(); })) << "still editing";
    }
};

TEST_F(PagesTest, ChoicesReachStoreProgramsAndTheNextSheet) {
    StartLoader();
    const Sample frame = OpenFrame("Witness");
    const auto hasExtension = [&] { return ReportOf(frame, sample::ReportMenu).find("64766") != std::string::npos; };
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
    Press(ApplyButton);
    EXPECT_TRUE(Eventually([&] { return !hasExtension(); })) << "the running program keeps the menu extension";
    ClickControl(IDC_DIALOGS_DEFAULT);
    ASSERT_TRUE(Becomes(IDC_DIALOGS_WHERE, false));
    Press(IDCANCEL);
    OpenSheet(TaskbarsTab);
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
    OpenSheet(WindowsTab);
    for (const int box : Boxes)
        EXPECT_EQ(Ask(Control(box), BM_GETCHECK), box == IDC_SYSTEM_MENU ? BST_UNCHECKED : BST_CHECKED) << box;
    EXPECT_EQ(Ask(Control(IDC_DIALOGS_WHERE), CB_GETCURSEL), 4);
    EXPECT_EQ(Ask(Control(IDC_OPACITY), TBM_GETPOS), 1);
}

TEST_F(PagesTest, DesktopsAreAddedNamedRemovedAndActivated) {
    WriteText(DesktopKey(2), "Wallpaper", "C:\\old.bmp");
    const Sample onOne = StartWithSample("On one");
    OpenSheet(DesktopsTab);
    // The chooser of a background, where the platform has no panel of its own for it.
    const auto chooser = [&] { return WindowOf(loader->Id(), "Background of the desktop"); };
    const auto background = [] { return TextOf("Control Panel\\Desktop", "Wallpaper"); };
    SelectRow(IDC_DESKTOP_LIST, 2);
    for (const WPARAM end : {IDCANCEL, IDOK}) {
        ClickControl(IDC_WALLPAPER);
        ASSERT_TRUE(Eventually([&] { return chooser() && background() == "C:\\old.bmp"; })) << background();
        EXPECT_TRUE(DesktopBecomes(2)) << "the desktop that it is for";
        SendMessageA(chooser(), WM_COMMAND, IDC_WALLPAPER_NONE, 0);
        PostMessageA(chooser(), WM_COMMAND, end, 0);
        ASSERT_TRUE(Eventually([&] { return !chooser(); }));
    }
    EXPECT_TRUE(Eventually([&] { return background().empty(); }));
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
    SelectRow(IDC_DESKTOP_LIST, 3);
    EXPECT_TRUE(Becomes(IDC_ACTIVATE_DESKTOP, false) && Becomes(IDC_REMOVE_DESKTOP, true)) << "not before Apply";
    SelectRow(IDC_DESKTOP_LIST, 2);
    TapKey("F2");
    NameRow("m a i l");
    EXPECT_EQ(TextOf(DesktopKey(2), nullptr), "Two") << "nothing is written before Apply";
    Press(ApplyButton);
    EXPECT_EQ(TextOf(DesktopKey(2), nullptr), "mail");
    EXPECT_EQ(Status("desktop 3"), "\"web\", 0 windows");

    // A new row may get the number of one that has gone, not its windows.
    SelectRow(IDC_DESKTOP_LIST, 1);
    ClickControl(IDC_REMOVE_DESKTOP);
    ClickControl(IDC_ADD_DESKTOP);
    NameRow("n e w");
    Press(IDOK);
    ASSERT_TRUE(DesktopBecomes(0));
    EXPECT_TRUE(BecomesVisible(onOne.window));
    EXPECT_TRUE(WindowsBecome(0, 1));
    EXPECT_EQ(TextOf(DesktopKey(1), nullptr), "new");

    // Off, the desktops give back what they hide, and nothing can be sent away for good; on, running programs know.
    Assign(onOne.window, 1);
    ASSERT_TRUE(BecomesHidden(onOne.window));
    OpenSheet(DesktopsTab);
    for (const bool on : {false, true}) {
        ClickControl(IDC_MULTI_DESK);
        Press(ApplyButton);
        EXPECT_TRUE(BecomesVisible(onOne.window));
        PostMessageA(onOne.window, WM_SYSCOMMAND, 64780, 0);  // to desktop 2, as its menu does
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

// Settings of the whole machine, and a user who isn't an administrator.
TEST_F(PagesTest, WhoMayNotChangeAnythingSeesAndUsesIt) {
    for (const char* value : {"Run", "RunWizard", "MultiDesk"})
        WriteNumber(published::ProductKey, value, 1, HKEY_LOCAL_MACHINE);
    WriteText(DesktopKey(5), nullptr, "Five", HKEY_LOCAL_MACHINE);
    StoreBinding("1073741829", std::string("\0\1\1\0T", 5), HKEY_LOCAL_MACHINE);
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
    QuitLoader();
    ASSERT_TRUE(Eventually([] { return !Server(); }));
    StartLoader();
    OpenSheet(DesktopsTab);
    EXPECT_TRUE(Becomes(IDC_MULTI_DESK, true)) << "an administrator may";
    DeleteKey(published::ProductKey, HKEY_LOCAL_MACHINE);
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
    EXPECT_TRUE(loader->Ends(2500)) << "the server's end closes what is open";
}

}  // namespace

}  // namespace halyard::test
