// Every control of the Windows, Taskbars and Desktops pages, by mouse and keyboard, and what becomes of it elsewhere.
#include "config/sheet_fixture.h"

#include <commctrl.h>

namespace halyard::test {

namespace {

class PagesTest : public SheetTest {
protected:
    // Types letters into the row of the list that has begun to be edited.
    void NameRow(const std::string& keys) {
        const auto edit = [&] { return reinterpret_cast<HWND>(Ask(Control(IDC_DESKTOP_LIST), LVM_GETEDITCONTROL)); };
        const auto focus = [&] {
            GUITHREADINFO info = {};
            info.cbSize = sizeof(info);
            GetGUIThreadInfo(GetWindowThreadProcessId(SheetWindow(), nullptr), &info);
            return info.hwndFocus;
        };
        ASSERT_TRUE(Eventually([&] { return edit() && edit() == focus(); })) << "no row is being edited";
        TapKey(keys + " Return");
        ASSERT_TRUE(Eventually([&] { return !edit(); })) << "still editing";
        ASSERT_NE(SheetWindow(), nullptr) << "the key that ended the name closed the sheet";
    }
    bool HasDesktop(int id) {
        return Loader("--status").out.find("desktop " + std::to_string(id) + ":") != std::string::npos;
    }
};

TEST_F(PagesTest, WindowsChoicesReachStoreProgramsAndTheNextSheet) {
    StartLoader();
    const Sample frame = OpenFrame("Witness");
    ASSERT_NE(ReportOf(frame, sample::ReportMenu).find("64766"), std::string::npos);
    OpenSheet(WindowsTab);
    EXPECT_FALSE(CanApply());
    ASSERT_TRUE(Becomes(IDC_WITH_CONTROL, false));
    for (const int box : {IDC_SYSTEM_MENU, IDC_WINDOW_MEMORY, IDC_AUTODOCK, IDC_MAXIMISE_ACROSS, IDC_WITH_CONTROL,
                          IDC_DIALOGS_CENTRED, IDC_TRANSPARENCY})
        ClickControl(box);
    ASSERT_TRUE(Becomes(IDC_DIALOGS_WHERE, true));
    Focus(IDC_DIALOGS_WHERE);
    TapKey("End");  // the last display
    EXPECT_TRUE(Eventually(
        [&] { return Ask(Control(IDC_DIALOGS_WHERE), CB_GETCURSEL) == 2 + GetSystemMetrics(SM_CMONITORS); }));
    ASSERT_TRUE(Becomes(IDC_OPACITY, true));
    Focus(IDC_OPACITY);
    TapKey("Home Right");
    EXPECT_TRUE(Eventually([&] { return CanApply() && Ask(Control(IDC_OPACITY), TBM_GETPOS) == 1; }));
    EXPECT_EQ(Stored("CtrlMax"), 0u) << "nothing is written before Apply";
    PressApply();

    const struct {
        const char* value;
        DWORD expected;
    } written[] = {{"ExtendSysMenu", 0}, {"WindowMem", 1}, {"Autodock", 1},        {"CtrlMax", 1},
                   {"DialogControl", 3}, {"DragTrans", 1}, {"DragTransPerCent", 1}};
    for (const auto& row : written)
        EXPECT_EQ(Stored(row.value), row.expected) << row.value;
    EXPECT_EQ(Stored("DialogMonitor"), static_cast<DWORD>(GetSystemMetrics(SM_CMONITORS)))
        << "the list follows the machine";
    EXPECT_TRUE(Eventually([&] { return ReportOf(frame, sample::ReportMenu).find("64766") == std::string::npos; }))
        << "the running program keeps the menu extension: " << ReportOf(frame, sample::ReportMenu);

    ClickControl(IDC_DIALOGS_DEFAULT);
    ASSERT_TRUE(Becomes(IDC_DIALOGS_WHERE, false));
    EXPECT_TRUE(CanApply());
    ClickControl(IDC_AUTODOCK);
    PressCancel();
    EXPECT_EQ(Stored("DialogControl"), 3u);
    EXPECT_EQ(Stored("Autodock"), 1u);

    QuitLoader();
    StartLoader();
    OpenSheet(WindowsTab);
    for (const int box : {IDC_WINDOW_MEMORY, IDC_AUTODOCK, IDC_MAXIMISE_ACROSS, IDC_WITH_CONTROL, IDC_DIALOGS_CENTRED,
                          IDC_TRANSPARENCY})
        EXPECT_TRUE(IsOn(box)) << box;
    EXPECT_FALSE(IsOn(IDC_SYSTEM_MENU));
    EXPECT_EQ(Ask(Control(IDC_DIALOGS_WHERE), CB_GETCURSEL), 2 + GetSystemMetrics(SM_CMONITORS));
    EXPECT_EQ(Ask(Control(IDC_OPACITY), TBM_GETPOS), 1);
    PressOk();
}

TEST_F(PagesTest, TaskbarsChoicesAreStored) {
    StartLoader();
    OpenSheet(TaskbarsTab);
    ASSERT_TRUE(Becomes(IDC_ALL_TASKS, false));
    ClickControl(IDC_TASKBARS);
    ASSERT_TRUE(Becomes(IDC_ALL_TASKS, true));
    ClickControl(IDC_ALL_TASKS);
    ClickControl(IDC_MIRROR);
    PressOk();
    for (const char* value : {"TaskbarsEnable", "TaskbarsShowAllTasks", "TaskswitchMirrorEnable"})
        EXPECT_EQ(Stored(value), 1u) << value;
    EXPECT_EQ(Stored("Autodock"), 0u) << "a page that wasn't opened writes nothing of its own";
}

TEST_F(PagesTest, TurnGreyWhileTheHooksAreOut) {
    StartLoader();
    OpenSheet(DesktopsTab);
    OpenSheet(WindowsTab);
    ASSERT_TRUE(Becomes(IDC_AUTODOCK, true));
    Loader("--disable");
    EXPECT_TRUE(Becomes(IDC_AUTODOCK, false));
    OpenSheet(DesktopsTab);
    EXPECT_TRUE(Becomes(IDC_MULTI_DESK, false));
    EXPECT_TRUE(Becomes(IDC_ADD_DESKTOP, false));
    Loader("--enable");
    EXPECT_TRUE(Becomes(IDC_ADD_DESKTOP, true));
    TapKey("Escape");
    EXPECT_TRUE(Eventually([&] { return !SheetWindow(); })) << "keys go to a control that was turned grey";
}

TEST_F(PagesTest, DesktopsAreAddedNamedRemovedAndActivated) {
    StartLoader();
    const Sample onOne = OpenSample("On one");
    ASSERT_TRUE(WindowsBecome(0, 1));
    OpenSheet(DesktopsTab);

    // At once, without Apply; a desktop that is current can't be activated again.
    SelectRow(IDC_DESKTOP_LIST, 1);
    Assign(onOne.window, 1);
    ASSERT_TRUE(BecomesHidden(onOne.window));
    ClickControl(IDC_ACTIVATE_DESKTOP);
    ASSERT_TRUE(DesktopBecomes(1));
    EXPECT_TRUE(BecomesVisible(onOne.window));
    EXPECT_TRUE(Becomes(IDC_ACTIVATE_DESKTOP, false));
    EXPECT_FALSE(CanApply());

    SelectRow(IDC_DESKTOP_LIST, 0);
    EXPECT_TRUE(Becomes(IDC_REMOVE_DESKTOP, false));
    TapKey("F2");
    EXPECT_EQ(Ask(Control(IDC_DESKTOP_LIST), LVM_GETEDITCONTROL), 0) << "the default desktop keeps its name";

    // A new row goes straight into editing its name.
    ClickControl(IDC_ADD_DESKTOP);
    NameRow("w e b");
    SelectRow(IDC_DESKTOP_LIST, 2);
    TapKey("F2");
    NameRow("m a i l");
    EXPECT_EQ(TextOf(DesktopKey(2), nullptr), "Two") << "nothing is written before Apply";
    PressApply();
    EXPECT_EQ(TextOf(DesktopKey(2), nullptr), "mail");
    EXPECT_EQ(TextOf(DesktopKey(3), nullptr), "web");
    EXPECT_EQ(Status("desktop 3"), "\"web\", 0 windows");

    // A row that goes before Apply leaves no trace; the current desktop's windows come to the default one.
    ClickControl(IDC_ADD_DESKTOP);
    NameRow("");
    SelectRow(IDC_DESKTOP_LIST, 4);
    ClickControl(IDC_REMOVE_DESKTOP);
    ASSERT_TRUE(Eventually([&] { return Ask(Control(IDC_DESKTOP_LIST), LVM_GETITEMCOUNT) == 4; }));
    SelectRow(IDC_DESKTOP_LIST, 1);
    ClickControl(IDC_REMOVE_DESKTOP);
    PressOk();
    ASSERT_TRUE(DesktopBecomes(0));
    EXPECT_TRUE(BecomesVisible(onOne.window));
    EXPECT_FALSE(HasDesktop(1));
    EXPECT_FALSE(HasDesktop(4));
    EXPECT_EQ(TextOf(DesktopKey(1), nullptr), "");
    EXPECT_TRUE(WindowsBecome(0, 1));
}

TEST_F(PagesTest, TurningDesktopsOffBringsAllWindowsBack) {
    StartLoader();
    const Sample moved = OpenSample("Moved");
    ASSERT_TRUE(WindowsBecome(0, 1));
    Assign(moved.window, 2);
    ASSERT_TRUE(BecomesHidden(moved.window));
    OpenSheet(DesktopsTab);
    ClickControl(IDC_MULTI_DESK);
    ASSERT_TRUE(Becomes(IDC_DESKTOP_LIST, false));
    PressOk();
    EXPECT_TRUE(BecomesVisible(moved.window));
    EXPECT_EQ(Stored("MultiDesk"), 0u);
    EXPECT_EQ(TextOf(DesktopKey(2), nullptr), "Two") << "the desktops stay";
}

TEST_F(PagesTest, OneSheetHoweverOftenItIsAskedFor) {
    StartLoader();
    Loader("--config 0 --config 2 --config 1");
    ASSERT_TRUE(Eventually([&] { return Control(IDC_TASKBARS) != nullptr; })) << "the last page asked for should show";
    EXPECT_EQ(CountSheets(), 1u);
    // A right click and its only item explain the control.
    RECT place = {};
    GetWindowRect(Control(IDC_MIRROR), &place);
    ASSERT_TRUE(BringToFront(SheetWindow()));
    MoveMouse({place.left + 30, place.top + 5});
    PostMessageA(GetParent(Control(IDC_MIRROR)), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Control(IDC_MIRROR)),
                 MAKELPARAM(place.left + 30, place.top + 5));
    ASSERT_TRUE(EntersLoop(SheetWindow(), GUI_INMENUMODE));
    TapKey("Down");
    TapKey("Return");
    const auto tip = [&] {
        for (HWND window : TopLevelWindows())
            if (IsWindowVisible(window) && Describe(window).find("tooltips_class32") != std::string::npos)
                return window;
        return HWND(nullptr);
    };
    EXPECT_TRUE(Eventually([&] { return tip() != nullptr; })) << "no help popup";
    TapKey("space");
    EXPECT_TRUE(Eventually([&] { return tip() == nullptr; })) << "the help popup stays";
    // The server's end closes what is open.
    EXPECT_EQ(Loader("--quit").status, 0u);
    EXPECT_TRUE(loader->Ends(WaitLimit));
    EXPECT_EQ(CountSheets(), 0u);
}

}  // namespace

}  // namespace halyard::test
