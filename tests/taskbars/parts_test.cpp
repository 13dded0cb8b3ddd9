// In the test's own process: icons, forged messages to a bar and its toolbar, and
// the hook's answers.
#include "displays/displays.h"
#include "process/shared_section.h"
#include "server/server_messages.h"
#include "server/server_window.h"
#include "support/rect_values.h"
#include "support/store_fixture.h"
#include "support/test_windows.h"
#include "taskbars/docking.h"
#include "taskbars/live_taskbars.h"
#include "taskbars/shell/tray_hook.h"
#include "taskbars/task_buttons.h"
#include "taskbars/task_list.h"
#include "taskbars/taskbar_end.h"
#include "taskbars/taskbar_manager.h"
#include "taskbars/theme_api.h"
#include "taskbars/toolbar_guard.h"

namespace halyard {

namespace {

template <typename Value>
LPARAM AddressOf(Value& value) {
    return reinterpret_cast<LPARAM>(&value);
}

// Two displays, of which the first one has the shell's bar.
class BarsTest : public testing::Test {
protected:
    void SetUp() override {
        settings.SetTaskbarsEnable(true);
        SetHooksInstalled(true);
        CreateServerWindow(ServerWndProc);
        RefreshDisplays();
        SyncDisplays();
    }
    void TearDown() override {
        DestroyAllTaskbars();
        test::Eventually([] { return true; });  // hands out what waits
        DestroyServerWindow();
    }
    test::KeptState kept;
};

TEST_F(BarsTest, ButtonsGetIconsAndWindowsGoToThem) {
    SecondaryTaskbar& bar = TaskbarAt(0);
    const test::TestWindow window, plain;
    SetClassLongPtrA(window.get(), GCLP_HICONSM, reinterpret_cast<LONG_PTR>(LoadIconA(nullptr, IDI_WINLOGO)));
    TaskButton* button = AddButton(bar, window.get(), true);
    EXPECT_GE(button->image, 0);
    SetClassLongPtrA(window.get(), GCLP_HICONSM, 0);
    // The file of a program is read elsewhere meanwhile, when the class has no icon.
    const TaskButton* late = AddButton(bar, plain.get(), true);
    EXPECT_EQ(late->image, I_IMAGENONE);
    EXPECT_TRUE(test::Eventually([&] { return late->image >= 0; }));

    RECT place = {}, target = {};
    ASSERT_TRUE(AskToolbar(bar.toolbar, TB_GETITEMRECT, 0, AddressOf(place)));
    MapWindowPoints(bar.toolbar, nullptr, reinterpret_cast<POINT*>(&place), 2);
    EXPECT_TRUE(MinimiseRect(bar, window.get(), target));
    EXPECT_EQ(target, place);
    button->onThisDisplay = false;
    EXPECT_FALSE(MinimiseRect(bar, window.get(), target));
}

TEST_F(BarsTest, BelieveNoAddressFromOutside) {
    SecondaryTaskbar& bar = TaskbarAt(0);
    const test::TestWindow window;
    ASSERT_NE(AddButton(bar, window.get(), true), nullptr);
    static RECT rect = {7, 7, 7, 7};
    static TBBUTTON entry = {};
    static NMTBCUSTOMDRAW drawing = {};
    NMMOUSE click = {};
    click.hdr = {bar.toolbar, 0, static_cast<UINT>(NM_CLICK)};
    click.dwItemData = 0x1234;
    drawing.nmcd.hdr = {bar.toolbar, 0, static_cast<UINT>(NM_CUSTOMDRAW)};
    drawing.nmcd.dwDrawStage = CDDS_PREPAINT;
    EXPECT_EQ(SendMessageA(bar.window, WM_NOTIFY, 0, AddressOf(drawing)), 0);
    for (HWND target : {bar.window, bar.toolbar})
        for (const LPARAM made : {LPARAM{0}, LPARAM{0x10}, LPARAM{-1}, AddressOf(click)})
            SendMessageA(target, WM_NOTIFY, 0, made);
    EXPECT_EQ(SendMessageA(bar.window, 139, reinterpret_cast<WPARAM>(window.get()), AddressOf(rect)), 0);
    for (const UINT message : {TB_GETBUTTON, TB_GETITEMRECT, TB_INSERTBUTTONA, TB_ADDBUTTONSA, TB_SETBUTTONINFOA,
                               TB_GETBUTTONINFOA, TB_SAVERESTOREA, TB_DELETEBUTTON, WM_CLOSE, WM_DESTROY})
        for (const LPARAM made : {LPARAM{0x10}, AddressOf(rect), AddressOf(entry)})
            EXPECT_EQ(SendMessageA(bar.toolbar, message, 0, made), 0) << message;
    SendMessageA(bar.window, WM_CLOSE, 0, 0);
    EXPECT_EQ(rect, (RECT{7, 7, 7, 7}));
    EXPECT_EQ(entry.idCommand, 0);
    for (const LPARAM forged : {AddressOf(rect), AddressOf(bar)})
        DeleteRetiredTaskbar(forged);
    EXPECT_EQ(AskToolbar(bar.toolbar, TB_BUTTONCOUNT, 0, 0), 1);
}

TEST_F(BarsTest, AnEndedDragLeavesTheMouseToWhoeverTookIt) {
    SecondaryTaskbar& bar = TaskbarAt(0);
    const test::TestWindow other;
    StartDrag(bar);
    ASSERT_EQ(GetCapture(), bar.window);
    SetCapture(other.get());
    EXPECT_FALSE(bar.busy);
    EXPECT_EQ(GetCapture(), other.get());
    ReleaseCapture();
}

TEST(TrayHookProc, ClosesOnlyTheEventsOfQuestionsThatLeaveTheQueue) {
    HANDLE event = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    HANDLE other = CreateMutexA(nullptr, FALSE, nullptr);
    DWORD flags = 0;
    SetTrayListWindow(nullptr);
    const auto ask = [](UINT message, WPARAM remove, HANDLE asked) {
        MSG question = {nullptr, message, 7, reinterpret_cast<LPARAM>(asked), 0, {}};
        TrayHookProc(HC_ACTION, remove, AddressOf(question));
    };
    ask(TM_WINDOW_AT, PM_NOREMOVE, event);
    EXPECT_TRUE(GetHandleInformation(event, &flags));
    ask(TM_WINDOW_AT, PM_REMOVE, event);
    EXPECT_FALSE(GetHandleInformation(event, &flags));
    EXPECT_EQ(TrayAnswer(), NotInTray);
    for (const UINT message : {TM_FIND_WINDOW, TM_WINDOW_AT}) {
        ask(message, PM_REMOVE, other);
        EXPECT_TRUE(GetHandleInformation(other, &flags)) << message;
        ask(message, PM_REMOVE, HandleFromBits<HANDLE>(0x7654321));
    }
    CloseHandle(other);
}

TEST(ThemeApi, AnswersWithoutItsLibrary) {
    EXPECT_FALSE(ThemeApi("no such library.dll").IsAppThemed());
}

}  // namespace

}  // namespace halyard
