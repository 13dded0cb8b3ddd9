// What other programs and other threads ask of the server.
#include "desktops/desktop_switch.h"
#include "hook/reload.h"
#include "hotkeys/hotkeys.h"
#include "process/broadcasts.h"
#include "process/server_call.h"
#include "server/exports.h"
#include "server/server_window.h"
#include "server_fixture.h"

#include <atomic>
#include <thread>

namespace halyard::test {
namespace {

WPARAM AsParameter(HWND window) {
    return reinterpret_cast<WPARAM>(window);
}

class ServerMessagesTest : public ServerTest {
protected:
    ServerMessagesTest() {
        StartServer();
        AddDesktops(2);
    }
};

TEST_F(ServerMessagesTest, KeepTheMapOfWindows) {
    const TestWindow window(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    const struct {
        LPARAM reported;
        DesktopId recorded;
    } cases[] = {{1, 1}, {0, 0}, {-2, AllDesktopsId}, {2, 2}, {7, 0}, {-1, 0}, {0x40000001, 0}};
    for (const auto& test : cases) {
        for (const UINT message : {HM_WINDOW_ATTACH, HM_WINDOW_RETURNS}) {
            EXPECT_EQ(0, Send(message, AsParameter(window.get()), test.reported));
            ASSERT_NE(nullptr, windowDesktopMap.Find(window.get()));
            EXPECT_EQ(test.recorded, windowDesktopMap.Find(window.get())->desktopId) << test.reported;
        }
    }
    Send(HM_WINDOW_ATTACH, AsParameter(window.get()), 2);
    EXPECT_TRUE(Becomes(false, window.get()));
    EXPECT_EQ(1, Send(HM_COUNT_WINDOWS, 0, 2));
    EXPECT_EQ(0, Send(HM_COUNT_WINDOWS, 0, 1));
    EXPECT_EQ(0, Send(HM_WINDOW_DETACH, AsParameter(window.get()), 1));
    EXPECT_EQ(nullptr, windowDesktopMap.Find(window.get()));
    EXPECT_TRUE(Becomes(true, window.get()));
}

TEST_F(ServerMessagesTest, SwitchTheDesktop) {
    EXPECT_EQ(0, Send(HM_SWITCH_DESKTOP, 0, 2));
    EXPECT_EQ(2u, CurrentDesktopId());
    EXPECT_EQ(0, Send(HM_SWITCH_DESKTOP, 5, 9));
    EXPECT_EQ(2u, CurrentDesktopId());
    for (const WPARAM ending : {1, 0}) {
        Send(HM_SWITCH_DESKTOP, 0, 1);
        Send(WM_ENDSESSION, ending, 0);
        EXPECT_EQ(0u, CurrentDesktopId()) << ending;
    }
}

TEST_F(ServerMessagesTest, OfTheTimersPurgeAndEnd) {
    HWND dead = TestWindow().get();
    Send(HM_WINDOW_ATTACH, AsParameter(dead), 0);
    Send(WM_TIMER, 2);
    EXPECT_NE(nullptr, windowDesktopMap.Find(dead)) << "another timer";
    Send(WM_TIMER, PurgeTimer);
    EXPECT_EQ(nullptr, windowDesktopMap.Find(dead));
    // The rings round the cursor come with the first five ticks; the sixth takes the last one away.
    for (int tick = 1; tick <= 6; ++tick) {
        SetTimer(ServerWindow(), FindCursorTimer, 60000, nullptr);
        EXPECT_EQ(0, Send(WM_TIMER, FindCursorTimer));
        EXPECT_EQ(tick < 6, KillTimer(ServerWindow(), FindCursorTimer) != FALSE) << "tick " << tick;
    }
}

TEST_F(ServerMessagesTest, OfHotkeysRunTheirAction) {
    constexpr unsigned ToSecond = DesktopActionBit | 2;
    const auto atom = [] {
        Hotkey hotkey;
        for (unsigned index = 0; HotkeyByIndex(index, hotkey); ++index)
            if (hotkey.action == ToSecond) return hotkey.atom;
        return ATOM(0);
    };
    LoadHotkeys();
    HotkeyModifiers binding;
    binding.ctrl = binding.alt = true;
    binding.key = VK_F9;
    SetHotkeyBinding(ToSecond, binding);
    SaveHotkeys();
    EXPECT_EQ(0, atom());
    Enable();
    ASSERT_NE(0, atom());
    Send(WM_HOTKEY, atom());
    EXPECT_EQ(0u, CurrentDesktopId()) << "the desktops are off";
    settings.StoreMultiDesk(true);
    Send(WM_HOTKEY, atom() ^ 1);
    EXPECT_EQ(0u, CurrentDesktopId()) << "nobody's";
    Send(WM_HOTKEY, atom());
    EXPECT_EQ(2u, CurrentDesktopId());
    // The platform takes hotkeys on the thread of their window only.
    EXPECT_EQ(0, Send(HM_UNREGISTER_HOTKEYS));
    EXPECT_EQ(0, atom());
    EXPECT_TRUE(RunBeside([] { RegisterHotkeys(); }));
    EXPECT_NE(0, atom());
    EXPECT_TRUE(RunBeside([] { UnregisterHotkeys(); }));
    EXPECT_EQ(0, atom());
    EXPECT_EQ(0, Send(HM_REGISTER_HOTKEYS));
    EXPECT_NE(0, atom());
}

TEST_F(ServerMessagesTest, OpenTheSheetThatEndsWithTheServer) {
    const auto sheet = [] { return FindWindowA("#32770", "Tevral Ombrel Windows Manager"); };
    EXPECT_EQ(0, Send(HM_OPEN_CONFIG));
    EXPECT_TRUE(PumpUntil([&] { return IsWindowVisible(sheet()) != FALSE; }));
    HWND first = sheet();
    EXPECT_EQ(1, DoConfigDlg(2));
    ServerUninit();
    EXPECT_TRUE(PumpUntil([&] { return !IsWindow(first); }));
    EXPECT_EQ(nullptr, sheet());
}

TEST_F(ServerMessagesTest, ThatAreForgedDoNoHarm) {
    const HWND bogus = HandleFromBits<HWND>(0x7FFFFFF0);
    for (const HWND window : {HWND(nullptr), bogus, GetDesktopWindow()}) {
        for (const UINT message : {HM_WINDOW_ATTACH, HM_WINDOW_ATTACH, HM_WINDOW_RETURNS, HM_WINDOW_DETACH,
                                   HM_WINDOW_CHANGED, HM_TAB_ADD, HM_TAB_DELETE, HM_REFRESH_EXTRAS})
            EXPECT_EQ(0, Send(message, AsParameter(window), 1)) << message;
    }
    for (const LPARAM pointer : {LPARAM(0), LPARAM(1), LPARAM(0x7FFFFFF0), LPARAM(-1)}) {
        for (const UINT message : {HM_TASKBAR_DELETE, HM_CALL})
            EXPECT_EQ(0, Send(message, 0, pointer)) << message;
    }
    Send(WM_HOTKEY, 0, 0);
    Send(WM_HOTKEY, 0xBFFF, 0);
    Send(WM_DISPLAYCHANGE);
    EXPECT_TRUE(IsWindow(ServerWindow()));
    EXPECT_EQ(0u, CurrentDesktopId());
}

TEST_F(ServerMessagesTest, CarryTheWorkOfOtherThreadsOver) {
    const DWORD server = GetCurrentThreadId();
    DWORD ranOn = 0;
    RunOnServerThread([&] { ranOn = GetCurrentThreadId(); });
    EXPECT_EQ(server, ranOn) << "from the thread itself";
    EXPECT_TRUE(OnServerThread());
    EXPECT_TRUE(IsServerWindowOurs());
    int answer = 0;
    int runs = 0;
    EXPECT_TRUE(RunBeside([&] {
        EXPECT_FALSE(OnServerThread());
        RunOnServerThread([&] {
            ranOn = GetCurrentThreadId();
            ++runs;
        });
        EXPECT_EQ(1, runs) << "it is waited for";
        EXPECT_EQ(0, SetActiveDesktop(2)) << "the hooks are out";
        Enable();
        answer = SetActiveDesktop(2);
        EXPECT_EQ(2u, CurrentDesktopId());
        EXPECT_EQ(1, SetActiveDesktop(77));
        ActivateNext();
        EXPECT_EQ(0u, CurrentDesktopId());
        ActivatePrevious();
        EXPECT_EQ(2u, CurrentDesktopId());
        RemoveDesktop(2);
        EXPECT_EQ(0u, CurrentDesktopId());
        ReloadDesktops();
        Disable();
    }));
    EXPECT_EQ(server, ranOn);
    EXPECT_EQ(1, answer);
    EXPECT_FALSE(HooksInstalled());
    EXPECT_TRUE(desktopList.Has(2) && !desktopList.Has(1)) << "read anew: only the one that was left is stored";
}

TEST_F(ServerMessagesTest, RunTheWorkOfAThreadOnceHoweverManyTicketsAreForged) {
    std::atomic<int> runs = 0;
    std::thread caller([&] { RunOnServerThread([&] { ++runs; }); });
    ASSERT_TRUE(PumpUntil([&] { return runs == 1; }));
    caller.join();
    std::thread second([&] { RunOnServerThread([&] { ++runs; }); });
    // It waits for this thread, which hasn't looked for its message.
    const DWORD start = GetTickCount();
    while (!(HIWORD(GetQueueStatus(QS_SENDMESSAGE)) & QS_SENDMESSAGE) && GetTickCount() - start < Deadline)
        Sleep(1);
    for (LPARAM ticket = 0; ticket < 1000; ++ticket)
        ServerWndProc(ServerWindow(), HM_CALL, 0, ticket);
    EXPECT_EQ(2, runs);
    EXPECT_TRUE(PumpUntil([] { return !(HIWORD(GetQueueStatus(QS_SENDMESSAGE)) & QS_SENDMESSAGE); }));
    second.join();
    EXPECT_EQ(2, runs);
}

TEST_F(ServerMessagesTest, DropTheWorkOfAThreadWhenTheWindowGoes) {
    std::atomic<bool> ran = false;
    std::atomic<bool> returned = false;
    std::thread caller([&] {
        RunOnServerThread([&] { ran = true; });
        returned = true;
    });
    const DWORD start = GetTickCount();
    while (!(HIWORD(GetQueueStatus(QS_SENDMESSAGE)) & QS_SENDMESSAGE) && GetTickCount() - start < Deadline)
        Sleep(1);
    // Its end doesn't hand out what waits for the window.
    DestroyServerWindow();
    EXPECT_TRUE(PumpUntil([&] { return returned.load(); }));
    caller.join();
    EXPECT_FALSE(ran);
}

TEST_F(ServerMessagesTest, OfTheBroadcastsReachEveryTopLevelWindow) {
    TestWindow top;
    std::vector<std::pair<UINT, WPARAM>> seen;
    bool woken = false;
    top.handler = [&](UINT message, WPARAM wParam, LPARAM lParam) -> std::optional<LRESULT> {
        if (message == WM_NULL) woken = true;
        if (message == profile.settingMessage && lParam == 0) seen.emplace_back(message, wParam);
        if (message == profile.restartMessage && wParam == 0) seen.emplace_back(message, lParam);
        return std::nullopt;
    };
    BroadcastSettings(SettingKind::Settings);
    BroadcastSettings(SettingKind::Desktops);
    BroadcastRestart(true);
    BroadcastRestart(false);
    EXPECT_TRUE(woken);
    EXPECT_TRUE(PumpUntil([&] { return seen.size() == 4; }));
    const std::vector<std::pair<UINT, WPARAM>> expected = {{profile.settingMessage, 1},
                                                           {profile.settingMessage, 2},
                                                           {profile.restartMessage, 1},
                                                           {profile.restartMessage, 0}};
    EXPECT_EQ(expected, seen);
}

TEST_F(ServerMessagesTest, AndExportsTellOfTheDesktops) {
    char name[300];
    unsigned id = 99;
    const std::string longest(260, 'n');
    desktopList.Add(longest.c_str(), 8);
    const std::string names[] = {"Default", "Desktop 1", "Desktop 2", longest};
    const unsigned ids[] = {0, 1, 2, 8};
    for (unsigned index = 0; index < 4; ++index) {
        std::memset(name, 'x', sizeof(name));
        EXPECT_EQ(1, GetDesktop(index, name, 0, &id));
        EXPECT_EQ(names[index], name);
        EXPECT_EQ('x', name[names[index].size() + 1]) << "nothing behind the closing zero";
        EXPECT_EQ(ids[index], id);
    }
    for (const unsigned index : {4u, 5u, 0xFFFFFFFFu}) {
        id = 99;
        name[0] = 'x';
        EXPECT_EQ(0, GetDesktop(index, name, sizeof(name), &id));
        EXPECT_EQ(99u, id);
        EXPECT_EQ('x', name[0]);
    }
    EXPECT_EQ(0, SetActiveDesktop(1)) << "the hooks are out";
    EXPECT_EQ(1, GetCurrentDesktopId(&id));
    EXPECT_EQ(0u, id);
    Enable();
    for (const auto& [asked, current] : {std::pair(1u, 1u), {1u, 1u}, {77u, 1u}, {AllDesktopsId, 1u}, {8u, 8u}}) {
        EXPECT_EQ(1, SetActiveDesktop(asked));
        EXPECT_EQ(1, GetCurrentDesktopId(&id));
        EXPECT_EQ(current, id) << asked;
    }
    EXPECT_EQ(0, IsMultiDeskEnabled());
    settings.StoreMultiDesk(true);
    EXPECT_EQ(1, IsMultiDeskEnabled());
    EXPECT_EQ(ServerWindow(), GetServerHwnd());
}

}  // namespace
}  // namespace halyard::test
