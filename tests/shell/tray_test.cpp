// The stand-in itself, where a fault in it would let the tests of the task bars and of the task switch pass wrongly.
#include "desktop/desktop_fixture.h"
#include "desktop_behaviours/input.h"
#include "shell/record.h"
#include "shell/tray.h"

#include <initguid.h>
#include <shellapi.h>
#include <shobjidl.h>

namespace halyard::test {

namespace {

class TrayTest : public DesktopTest {
protected:
    Tray tray;
};

TEST_F(TrayTest, FollowsTheWindowsThatComeAndGo) {
    for (const char* switches : {"", "--tabs"}) {
        const Sample first = OpenSample("First");
        tray.Start(children, switches);
        const Sample second = OpenSample("Second");
        OpenPopup(second, true);
        EXPECT_TRUE(tray.TabsBecome({first.window, second.window})) << switches;
        EXPECT_TRUE(BringToFront(first.window));
        EXPECT_TRUE(Eventually([&] { return tray.Marked() == first.window; })) << Describe(tray.Marked());
        Ask(first.window, sample::ShowAs, SW_HIDE);
        EXPECT_TRUE(tray.TabsBecome({second.window}));
        Ask(first.window, sample::ShowAs, SW_SHOW);
        EXPECT_TRUE(tray.TabsBecome({second.window, first.window}));
        PostMessageA(second.window, WM_CLOSE, 0, 0);
        EXPECT_TRUE(tray.TabsBecome({first.window}));
        first.program->Kill();
        EXPECT_TRUE(tray.TabsBecome({}));
        tray.Quit();
    }
}

TEST_F(TrayTest, LosesATabToTheTaskListUntilItIsGivenBack) {
    tray.Start(children);
    const Sample sample = OpenSample("Sample");
    ASSERT_TRUE(tray.TabsBecome({sample.window}));
    ASSERT_TRUE(SUCCEEDED(CoInitialize(nullptr)));
    ITaskbarList* list = nullptr;
    CoCreateInstance(CLSID_TaskbarList, nullptr, CLSCTX_INPROC_SERVER, IID_ITaskbarList,
                     reinterpret_cast<void**>(&list));
    ASSERT_NE(list, nullptr);
    list->HrInit();
    list->DeleteTab(sample.window);
    EXPECT_TRUE(tray.TabsBecome({}));
    tray.SayShellEvent(HSHELL_REDRAW, sample.window);
    const Sample later = OpenSample("Later");
    EXPECT_TRUE(tray.TabsBecome({later.window})) << "the shell has looked at all windows since";
    list->AddTab(sample.window);
    EXPECT_TRUE(tray.TabsBecome({later.window, sample.window}));
    list->DeleteTab(sample.window);
    tray.SayShellEvent(HSHELL_RUDEAPPACTIVATED, sample.window);
    EXPECT_TRUE(tray.TabsBecome({later.window, sample.window}));
    EXPECT_EQ(standin::ReadText(standin::LogValue), "HrInit\nDeleteTab Sample\nAddTab Sample\nDeleteTab Sample\n");
    list->Release();
    CoUninitialize();
}

TEST_F(TrayTest, TellsOtherBarsWhereItIs) {
    const auto place = [] {
        APPBARDATA data = {};
        data.cbSize = sizeof(data);
        const bool answered = SHAppBarMessage(ABM_GETTASKBARPOS, &data) != 0;
        return std::to_string(answered) + " edge " + std::to_string(data.uEdge) + " " + Describe(data.hWnd);
    };
    tray.Start(children);
    for (const auto& [display, edge] : {std::pair{1, ABE_BOTTOM}, {2, ABE_LEFT}, {1, ABE_TOP}}) {
        tray.Move(display, edge);
        EXPECT_EQ(place(), "1 edge " + std::to_string(edge) + " " + Describe(tray.Window()));
    }
}

TEST_F(TrayTest, SwitchesTasksWhileAltIsHeld) {
    const auto switchWindow = [] { return FindWindowA(reinterpret_cast<LPCSTR>(32771), nullptr); };
    tray.Start(children);
    const Sample first = OpenSample("First");
    const Sample second = OpenSample("Second");
    ASSERT_TRUE(BringToFront(first.window));
    ASSERT_TRUE(BringToFront(second.window));
    {
        const HeldKey alt("alt");
        TapKey("Tab");
        EXPECT_TRUE(Eventually([&] { return switchWindow() != nullptr; }));
        EXPECT_EQ(GetForegroundWindow(), second.window) << "before the key is released";
    }
    EXPECT_TRUE(Eventually([&] { return GetForegroundWindow() == first.window && !switchWindow(); }))
        << Describe(GetForegroundWindow());

    // As a hotkey the keys never come to the switch, until their holder plays them again.
    ASSERT_TRUE(RegisterHotKey(nullptr, 1, MOD_ALT, VK_TAB));
    const HeldKey alt("alt");
    TapKey("Tab");
    MSG message = {};
    while (message.message != WM_HOTKEY && GetMessageA(&message, nullptr, 0, 0) > 0)
        continue;
    EXPECT_EQ(switchWindow(), nullptr);
    UnregisterHotKey(nullptr, 1);
    keybd_event(VK_MENU, 0, 0, 0);
    keybd_event(VK_TAB, 0, 0, 0);
    const HWND shown = switchWindow();
    EXPECT_NE(shown, nullptr) << "at once";
    PostMessageA(shown, WM_CLOSE, 0, 0);
    EXPECT_TRUE(Eventually([&] { return !switchWindow(); }));
}

}  // namespace

}  // namespace halyard::test
