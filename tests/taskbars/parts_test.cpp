// In the test's own process: the manager on made-up displays, what buttons look like, forged messages to a bar and its
// toolbar, and the hook's answers.
#include "displays/displays.h"
#include "process/profile.h"
#include "process/shared_section.h"
#include "server/server_messages.h"
#include "server/server_window.h"
#include "settings/settings.h"
#include "support/rect_values.h"
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

// 32 bits of the name's address, as many as a handle has.
HMONITOR HandleOf(const char* display) {
    return HandleFromBits<HMONITOR>(static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(display)));
}

const char* NameOf(HMONITOR handle) {
    const auto display = std::find_if(displays.begin(), displays.end(),
                                      [=](const auto& known) { return HandleOf(known.name) == handle; });
    return display == displays.end() ? "gone" : display->name;
}

BOOL WINAPI Enumerate(HDC, const RECT*, MONITORENUMPROC receive, LPARAM lParam) {
    for (MadeUpDisplay& display : displays)
        if (!receive(HandleOf(display.name), nullptr, &display.place, lParam)) return FALSE;
    return TRUE;
}

BOOL WINAPI Tell(HMONITOR handle, MONITORINFO* info) {
    const auto display = std::find_if(displays.begin(), displays.end(),
                                      [&](const auto& known) { return HandleOf(known.name) == handle; });
    if (display == displays.end()) return FALSE;
    info->rcMonitor = info->rcWork = display->place;
    if (info->cbSize >= sizeof(MONITORINFOEXA))
        std::strcpy(reinterpret_cast<MONITORINFOEXA*>(info)->szDevice, display->name);
    return TRUE;
}

HMONITOR WINAPI PrimaryOne(const RECT*, DWORD) {
    return HandleOf(primary);
}

constexpr char One[] = "DISPLAY1", Pseudo[] = "DISPLAYV1", Two[] = "DISPLAY2", Three[] = "DISPLAY3";

class BarsTest : public testing::Test {
protected:
    void SetUp() override {
        profile.enumDisplayMonitors = Enumerate;
        profile.getMonitorInfo = Tell;
        profile.monitorFromRect = PrimaryOne;
        settings.SetTaskbarsEnable(true);
        SetHooksInstalled(true);
        CreateServerWindow(ServerWndProc);
        displays = {
            {One, {0, 0, 800, 600}}, {Pseudo, {0, 0, 1, 1}}, {Two, {800, 0, 1600, 600}}, {Three, {0, 600, 800, 1200}}};
        primary = One;
        RefreshDisplays();
        SyncDisplays();
    }
    void TearDown() override {
        DestroyAllTaskbars();
        test::Eventually([] { return true; });  // hands out what waits
        DestroyServerWindow();
        SetHooksInstalled(false);
        profile.isWindows2000 = false;
    }
    // Name and number of each display with a bar, in the order of their making.
    static std::string Bars() {
        std::string text;
        for (unsigned index = 0; index < TaskbarCount(); ++index)
            text += std::string(NameOf(TaskbarAt(index).display)) + "=" +
                    std::to_string(TaskbarAt(index).displayIndex) + " ";
        return text;
    }
};

TEST_F(BarsTest, GoWithTheirDisplaysAndAreFreedOnce) {
    // Pseudo displays have no bar and no number.
    EXPECT_EQ(Bars(), "DISPLAY2=2 DISPLAY3=3 ");
    primary = Three;
    SyncDisplays();
    EXPECT_EQ(Bars(), "DISPLAY2=2 DISPLAY1=1 ");
    SecondaryTaskbar* gone = &TaskbarAt(0);
    HWND window = gone->window;
    displays.erase(displays.begin() + 2);
    RefreshDisplays();
    SyncDisplays();
    ASSERT_EQ(Bars(), "DISPLAY1=1 ");
    EXPECT_FALSE(IsWindow(window));
    test::Eventually([] { return true; });  // hands out what waits
    // One that is free already, a live one, and none at all.
    for (const LPARAM bar : {reinterpret_cast<LPARAM>(gone), reinterpret_cast<LPARAM>(&TaskbarAt(0)), LPARAM{0x1234}})
        DeleteRetiredTaskbar(bar);
    EXPECT_TRUE(IsWindow(TaskbarAt(0).window));
}

// A bar's toolbar as it paints itself.
class Painting {
public:
    explicit Painting(const SecondaryTaskbar& bar) : dc(CreateCompatibleDC(nullptr)) {
        HDC screen = GetDC(nullptr);
        bitmap = CreateCompatibleBitmap(screen, bar.clientWidth, bar.clientHeight);
        ReleaseDC(nullptr, screen);
        SelectObject(dc, bitmap);
        SendMessageA(bar.toolbar, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
    }
    Painting(const Painting&) = delete;
    Painting& operator=(const Painting&) = delete;
    ~Painting() {
        DeleteDC(dc);
        DeleteObject(bitmap);
    }
    int Count(const RECT& part, COLORREF colour) const {
        int count = 0;
        for (LONG y = part.top; y < part.bottom; ++y)
            for (LONG x = part.left; x < part.right; ++x)
                count += GetPixel(dc, x, y) == colour;
        return count;
    }

private:
    HDC dc;
    HBITMAP bitmap;
};

TEST_F(BarsTest, ButtonsShowIconTextAndMark) {
    constexpr COLORREF Red = RGB(255, 0, 0), White = RGB(255, 255, 255), Black = 0;
    const std::vector<DWORD> colours(16 * 16, 0xFFFF0000), mask(8, 0);
    SecondaryTaskbar& bar = TaskbarAt(0);
    const test::TestWindow window;
    SetWindowTextA(window.get(), "A window's title");
    HICON icon = CreateIcon(nullptr, 16, 16, 1, 32, reinterpret_cast<const BYTE*>(mask.data()),
                            reinterpret_cast<const BYTE*>(colours.data()));
    SetClassLongPtrA(window.get(), GCLP_HICONSM, reinterpret_cast<LONG_PTR>(icon));
    const TaskButton* button = AddButton(bar, window.get(), true);
    SetClassLongPtrA(window.get(), GCLP_HICONSM, 0);
    ASSERT_NE(button, nullptr);
    RECT place = {};
    ASSERT_TRUE(AskToolbar(bar.toolbar, TB_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&place)));
    RECT inner = place;
    InflateRect(&inner, -3, -3);
    const auto painted = [&](bool windows2000, bool checked) {
        profile.isWindows2000 = windows2000;
        checked ? CheckButton(bar, *button) : UncheckOtherButtons(bar, nullptr);
        const Painting painting(bar);
        EXPECT_GE(painting.Count(place, Red), 200) << windows2000 << checked;
        return std::pair(painting.Count(inner, Black), painting.Count(inner, White));
    };
    const auto [plainInk, plainWhite] = painted(false, false);
    const auto [markedInk, markedWhite] = painted(false, true);
    EXPECT_GT(plainInk, 50);
    EXPECT_GT(markedInk, plainInk * 11 / 10) << "the marked button's text is bold";
    const auto [oldInk, oldWhite] = painted(true, true);
    EXPECT_GT(oldInk, plainInk * 11 / 10);
    // Half of the button's background, where neither icon nor text is.
    const int area = WidthOf(inner) * HeightOf(inner) - 256 - oldInk;
    EXPECT_NEAR(oldWhite, area / 2, area / 10);
    EXPECT_LT(plainWhite, area / 10);

    // The file of a program is read elsewhere meanwhile, when the class has no icon.
    const test::TestWindow plain;
    const TaskButton* late = AddButton(bar, plain.get(), true);
    EXPECT_EQ(late->image, I_IMAGENONE);
    EXPECT_TRUE(test::Eventually([&] { return late->image >= 0; }));

    // A button is also where its window is minimised to.
    MapWindowPoints(bar.toolbar, nullptr, reinterpret_cast<POINT*>(&place), 2);
    RECT target = {};
    EXPECT_TRUE(MinimiseRect(bar, window.get(), target));
    EXPECT_EQ(target, place);
    FindButton(bar, window.get())->onThisDisplay = false;
    EXPECT_FALSE(MinimiseRect(bar, window.get(), target));
    EXPECT_FALSE(MinimiseRect(TaskbarAt(1), window.get(), target));
    DestroyIcon(icon);
}

TEST_F(BarsTest, BelieveNoAddressFromOutside) {
    SecondaryTaskbar& bar = TaskbarAt(0);
    const test::TestWindow window;
    ASSERT_NE(AddButton(bar, window.get(), true), nullptr);
    const auto address = [](auto& value) { return reinterpret_cast<LPARAM>(&value); };
    static RECT rect = {7, 7, 7, 7};
    static TBBUTTON entry = {};
    static NMTBCUSTOMDRAW drawing = {};
    NMMOUSE click = {};
    click.hdr = {bar.toolbar, 0, static_cast<UINT>(NM_CLICK)};
    click.dwItemData = 0x1234;
    drawing.nmcd.hdr = {bar.toolbar, 0, static_cast<UINT>(NM_CUSTOMDRAW)};
    drawing.nmcd.dwDrawStage = CDDS_PREPAINT;
    EXPECT_EQ(SendMessageA(bar.window, WM_NOTIFY, 0, address(drawing)), 0);
    for (HWND target : {bar.window, bar.toolbar})
        for (const LPARAM made : {LPARAM{0}, LPARAM{0x10}, LPARAM{-1}, address(click)})
            SendMessageA(target, WM_NOTIFY, 0, made);
    EXPECT_EQ(SendMessageA(bar.window, 139, reinterpret_cast<WPARAM>(window.get()), address(rect)), 0);
    for (const UINT message : {TB_GETBUTTON, TB_GETITEMRECT, TB_INSERTBUTTONA, TB_ADDBUTTONSA, TB_SETBUTTONINFOA,
                               TB_GETBUTTONINFOA, TB_SAVERESTOREA, TB_DELETEBUTTON, WM_CLOSE, WM_DESTROY})
        for (const LPARAM made : {LPARAM{0x10}, address(rect), address(entry)})
            EXPECT_EQ(SendMessageA(bar.toolbar, message, 0, made), 0) << message;
    SendMessageA(bar.window, WM_CLOSE, 0, 0);
    EXPECT_EQ(rect, (RECT{7, 7, 7, 7}));
    EXPECT_EQ(entry.idCommand, 0);
    // A screen reader brings room of its own.
    auto* room = static_cast<TBBUTTON*>(VirtualAlloc(nullptr, 4096, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE));
    EXPECT_TRUE(SendMessageA(bar.toolbar, TB_GETBUTTON, 0, reinterpret_cast<LPARAM>(room)));
    EXPECT_EQ(room->idCommand, bar.buttons.At(0)->commandId);
    VirtualFree(room, 0, MEM_RELEASE);
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
    EXPECT_FALSE(ThemeApi("no such library.dll").IsAppThemed());
}

}  // namespace

}  // namespace halyard
