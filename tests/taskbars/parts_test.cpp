// The manager on made-up displays, and the hook's answers, in the test's own process.
#include "process/profile.h"
#include "process/shared_section.h"
#include "server/server_window.h"
#include "settings/settings.h"
#include "taskbars/shell/tray_hook.h"
#include "taskbars/live_taskbars.h"
#include "taskbars/taskbar_end.h"
#include "taskbars/taskbar_manager.h"
#include "taskbars/theme_api.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace halyard {

namespace {

struct MadeUpDisplay {
    const char* name;
    RECT place;
};

std::vector<MadeUpDisplay> displays;
const char* primary = nullptr;  // the one with the shell's bar

HMONITOR HandleOf(const MadeUpDisplay& display) {
    // By its name, as the platform keeps a display's handle.
    return reinterpret_cast<HMONITOR>(const_cast<char*>(display.name));
}

BOOL WINAPI Enumerate(HDC, const RECT*, MONITORENUMPROC receive, LPARAM lParam) {
    for (MadeUpDisplay& display : displays)
        if (!receive(HandleOf(display), nullptr, &display.place, lParam)) return FALSE;
    return TRUE;
}

BOOL WINAPI Tell(HMONITOR handle, MONITORINFO* info) {
    const auto found = std::find_if(displays.begin(), displays.end(),
                                    [&](const auto& display) { return HandleOf(display) == handle; });
    if (found == displays.end()) return FALSE;
    info->rcMonitor = info->rcWork = found->place;
    if (info->cbSize >= sizeof(MONITORINFOEXA))
        std::strcpy(reinterpret_cast<MONITORINFOEXA*>(info)->szDevice, found->name);
    return TRUE;
}

HMONITOR WINAPI PrimaryOne(const RECT*, DWORD) {
    return reinterpret_cast<HMONITOR>(const_cast<char*>(primary));
}

constexpr char One[] = "\\\\.\\DISPLAY1";
constexpr char Pseudo[] = "\\\\.\\DISPLAYV1";
constexpr char Two[] = "\\\\.\\DISPLAY2";
constexpr char Three[] = "\\\\.\\DISPLAY3";

class ManagerTest : public testing::Test {
protected:
    void SetUp() override {
        profile.enumDisplayMonitors = Enumerate;
        profile.getMonitorInfo = Tell;
        profile.monitorFromRect = PrimaryOne;
        settings.SetTaskbarsEnable(true);
        SetHooksInstalled(true);
        CreateServerWindow();
        displays = {
            {One, {0, 0, 800, 600}}, {Pseudo, {0, 0, 1, 1}}, {Two, {800, 0, 1600, 600}}, {Three, {0, 600, 800, 1200}}};
        primary = One;
        SyncDisplays();
    }
    void TearDown() override {
        DestroyAllTaskbars();
        Pump();
        DestroyServerWindow();
        SetHooksInstalled(false);
    }
    static void Pump() {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageA(&message);
    }
    // Name and number of each display with a bar, in the order of their making.
    static std::string Bars() {
        std::string text;
        for (unsigned index = 0; index < TaskbarCount(); ++index) {
            const SecondaryTaskbar& bar = TaskbarAt(index);
            text += std::string(reinterpret_cast<const char*>(bar.display) + 4) + "=" +
                    std::to_string(bar.displayIndex) + " ";
        }
        return text;
    }
};

TEST_F(ManagerTest, PseudoDisplaysHaveNoBarAndNoNumber) {
    EXPECT_EQ(Bars(), "DISPLAY2=2 DISPLAY3=3 ");
    SyncDisplays();
    EXPECT_EQ(Bars(), "DISPLAY2=2 DISPLAY3=3 ");
    primary = Three;
    SyncDisplays();
    EXPECT_EQ(Bars(), "DISPLAY2=2 DISPLAY1=1 ");
    settings.SetTaskbarsEnable(false);
    displays.push_back({"\\\\.\\DISPLAY4", {800, 600, 1600, 1200}});
    SyncDisplays();
    EXPECT_EQ(Bars(), "DISPLAY2=2 DISPLAY1=1 ");
}

TEST_F(ManagerTest, ABarGoesWithItsDisplayAndIsFreedOnce) {
    ASSERT_EQ(Bars(), "DISPLAY2=2 DISPLAY3=3 ");
    SecondaryTaskbar* gone = &TaskbarAt(0);
    HWND window = gone->window;
    displays.erase(displays.begin() + 2);
    SendMessageA(window, WM_DISPLAYCHANGE, 0, 0);
    ASSERT_EQ(Bars(), "DISPLAY3=3 ");
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(IsLive(gone));
    EXPECT_EQ(Bars(), "DISPLAY3=3 ");
    // A live one, and none at all, aren't freed.
    DeleteRetiredTaskbar(reinterpret_cast<LPARAM>(&TaskbarAt(0)));
    DeleteRetiredTaskbar(0x1234);
    Pump();
    DeleteRetiredTaskbar(reinterpret_cast<LPARAM>(gone));
    EXPECT_EQ(Bars(), "DISPLAY3=3 ");
    EXPECT_TRUE(IsWindow(TaskbarAt(0).window));
}

TEST(TrayHookProc, ClosesOnlyTheEventsOfQuestionsThatLeaveTheQueue) {
    HANDLE event = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    HANDLE other = CreateMutexA(nullptr, FALSE, nullptr);
    DWORD flags = 0;
    SetTrayListWindow(nullptr);
    MSG question = {nullptr, TM_WINDOW_AT, 0, reinterpret_cast<LPARAM>(event), 0, {}};
    TrayHookProc(HC_ACTION, PM_NOREMOVE, reinterpret_cast<LPARAM>(&question));
    EXPECT_EQ(WaitForSingleObject(event, 0), static_cast<DWORD>(WAIT_TIMEOUT));
    HANDLE watch = nullptr;
    DuplicateHandle(GetCurrentProcess(), event, GetCurrentProcess(), &watch, 0, FALSE, DUPLICATE_SAME_ACCESS);
    TrayHookProc(HC_ACTION, PM_REMOVE, reinterpret_cast<LPARAM>(&question));
    EXPECT_EQ(WaitForSingleObject(watch, 0), static_cast<DWORD>(WAIT_OBJECT_0));
    EXPECT_FALSE(GetHandleInformation(event, &flags));
    EXPECT_EQ(TrayAnswer(), NotInTray);
    for (const UINT message : {TM_FIND_WINDOW, TM_WINDOW_AT}) {
        MSG forged = {nullptr, message, 7, reinterpret_cast<LPARAM>(other), 0, {}};
        TrayHookProc(HC_ACTION, PM_REMOVE, reinterpret_cast<LPARAM>(&forged));
        EXPECT_TRUE(GetHandleInformation(other, &flags)) << message;
        forged.lParam = 0x7654321;
        TrayHookProc(HC_ACTION, PM_REMOVE, reinterpret_cast<LPARAM>(&forged));
    }
    CloseHandle(watch);
    CloseHandle(other);
}

TEST(ThemeApi, AnswersWithoutItsLibrary) {
    ThemeApi missing("no such library.dll");
    const RECT bounds = {0, 0, 9, 9};
    EXPECT_FALSE(missing.IsAppThemed());
    EXPECT_EQ(missing.OpenThemeData(nullptr, L"TASKBAR"), nullptr);
    EXPECT_EQ(missing.CloseThemeData(nullptr), E_FAIL);
    EXPECT_EQ(missing.DrawThemeBackground(nullptr, nullptr, 1, 0, bounds, bounds), E_FAIL);
    EXPECT_EQ(missing.SetWindowTheme(nullptr, L"Taskband", L"Toolbar"), E_FAIL);
}

}  // namespace

}  // namespace halyard
