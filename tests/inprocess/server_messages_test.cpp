// What other programs and other threads ask of the server.
#include "desktops/desktop_switch.h"
#include "hotkeys/hotkeys.h"
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
        AddDesktops(3);
    }
    static bool SomethingIsSent() { return (HIWORD(GetQueueStatus(QS_SENDMESSAGE)) & QS_SENDMESSAGE) != 0; }
    // Waits, without answering it, for a message that another thread sends to this one.
    static void AwaitSent() {
        const DWORD start = GetTickCount();
        while (!SomethingIsSent() && GetTickCount() - start < Deadline)
            Sleep(1);
    }
};

TEST_F(ServerMessagesTest, KeepTheMapOfWindows) {
    const TestWindow window(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    const struct {
        LPARAM reported;
        DesktopId recorded;
    } cases[] = {{1, 1}, {-2, AllDesktopsId}, {7, 0}, {-1, 0}, {0x40000001, 0}, {2, 2}};
    for (const auto& test : cases) {
        for (const UINT message : {HM_WINDOW_RETURNS, HM_WINDOW_ATTACH}) {
            EXPECT_EQ(0, Send(message, AsParameter(window.get()), test.reported));
            ASSERT_NE(nullptr, windowDesktopMap.Find(window.get()));
            EXPECT_EQ(test.recorded, windowDesktopMap.Find(window.get())->desktopId) << test.reported;
        }
    }
    EXPECT_EQ(1, Send(HM_COUNT_WINDOWS, 0, 2));
    EXPECT_TRUE(Becomes(false, window.get()));
    Send(HM_WINDOW_DETACH, AsParameter(window.get()), 1);
    EXPECT_TRUE(Becomes(true, window.get()));
    EXPECT_EQ(0, Send(HM_COUNT_WINDOWS, 0, 2));
}

TEST_F(ServerMessagesTest, SwitchTheDesktop) {
    Send(HM_SWITCH_DESKTOP, 0, 2);
    EXPECT_EQ(2u, CurrentDesktopId());
    Send(HM_SWITCH_DESKTOP, 5, 9);
    EXPECT_EQ(2u, CurrentDesktopId());
    Send(WM_ENDSESSION, FALSE, 0);
    EXPECT_EQ(0u, CurrentDesktopId());
    for (const DesktopId expected : {1u, 2u, 3u, 0u, 1u}) {
        ActivateNext();
        EXPECT_EQ(expected, CurrentDesktopId());
    }
    for (const DesktopId expected : {0u, 3u}) {
        ActivatePrevious();
        EXPECT_EQ(expected, CurrentDesktopId());
    }
    SetCurrentDesktopId(8);
    ActivateNext();
    EXPECT_EQ(8u, CurrentDesktopId()) << "from one that is not in the list";
}

TEST_F(ServerMessagesTest, ThatComeInTheMiddleOfASwitchAreCarriedOutAfterIt) {
    TestWindow leaving(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    DesktopId atRequest = 99;
    leaving.handler = [&](UINT message, WPARAM shown, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_SHOWWINDOW && !shown && atRequest == 99) {
            Activate(3);
            atRequest = CurrentDesktopId();
        }
        return std::nullopt;
    };
    desktopList.Find(1)->colour = 0x101010;
    windowDesktopMap.Assign(leaving.get(), 0);
    Activate(1);
    EXPECT_EQ(1u, atRequest) << "99: it was never hidden";
    EXPECT_EQ(3u, CurrentDesktopId());
    EXPECT_EQ(0x101010u, desktopList.Find(1)->colour) << "it was left with the colour that it had just been given";
}

TEST_F(ServerMessagesTest, OfHotkeysRunTheirActionOnTheThreadOfTheWindow) {
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
    Enable();
    ASSERT_NE(0, atom());
    Send(WM_HOTKEY, atom());
    EXPECT_EQ(0u, CurrentDesktopId()) << "the desktops are off";
    settings.StoreMultiDesk(true);
    Send(WM_HOTKEY, atom() ^ 1);
    EXPECT_EQ(0u, CurrentDesktopId()) << "nobody's";
    Send(WM_HOTKEY, atom());
    EXPECT_EQ(2u, CurrentDesktopId());
    EXPECT_TRUE(RunBeside([] { UnregisterHotkeys(); }));
    EXPECT_EQ(0, atom());
    EXPECT_TRUE(RunBeside([] { RegisterHotkeys(); }));
    EXPECT_NE(0, atom());
}

TEST_F(ServerMessagesTest, OfTheCursorsTimerEndWithTheRings) {
    for (int tick = 1; tick <= 6; ++tick) {
        SetTimer(ServerWindow(), FindCursorTimer, 60000, nullptr);
        Send(WM_TIMER, FindCursorTimer);
        EXPECT_EQ(tick < 6, KillTimer(ServerWindow(), FindCursorTimer) != FALSE) << "tick " << tick;
    }
}

TEST_F(ServerMessagesTest, OpenTheSheetThatEndsWithTheServer) {
    Send(HM_OPEN_CONFIG);
    HWND sheet = nullptr;
    ASSERT_TRUE(PumpUntil([&] { return (sheet = FindWindowA("#32770", "Tevral Ombrel Windows Manager")) != nullptr; }));
    ServerUninit();
    EXPECT_TRUE(PumpUntil([&] { return !IsWindow(sheet); }));
}

TEST_F(ServerMessagesTest, ThatAreForgedDoNoHarm) {
    for (const HWND window : {HWND(nullptr), HandleFromBits<HWND>(0x7FFFFFF0), GetDesktopWindow()}) {
        for (const UINT message : {HM_WINDOW_ATTACH, HM_WINDOW_ATTACH, HM_WINDOW_RETURNS, HM_WINDOW_DETACH,
                                   HM_WINDOW_CHANGED, HM_TAB_ADD, HM_TAB_DELETE, HM_REFRESH_EXTRAS})
            EXPECT_EQ(0, Send(message, AsParameter(window), 1)) << message;
    }
    for (const LPARAM pointer : {LPARAM(0), LPARAM(1), LPARAM(0x7FFFFFF0), LPARAM(-1)}) {
        for (const UINT message : {HM_TASKBAR_DELETE, HM_CALL})
            EXPECT_EQ(0, Send(message, 0, pointer)) << message;
    }
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
    EXPECT_TRUE(RunBeside([&] {
        int runs = 0;
        RunOnServerThread([&] {
            ranOn = GetCurrentThreadId();
            ++runs;
        });
        EXPECT_EQ(1, runs) << "it is waited for";
        Enable();
        EXPECT_EQ(1, SetActiveDesktop(2));
        EXPECT_EQ(2u, CurrentDesktopId());
        ActivateNext();
        EXPECT_EQ(3u, CurrentDesktopId());
        RemoveDesktop(3);
        EXPECT_EQ(0u, CurrentDesktopId());
        Disable();
    }));
    EXPECT_EQ(server, ranOn);
    EXPECT_FALSE(HooksInstalled());
}

TEST_F(ServerMessagesTest, RunTheWorkOfAThreadOnceHoweverManyTicketsAreForged) {
    std::atomic<int> runs = 0;
    EXPECT_TRUE(RunBeside([&] { RunOnServerThread([&] { ++runs; }); }));
    EXPECT_EQ(1, runs);
    std::thread second([&] { RunOnServerThread([&] { ++runs; }); });
    AwaitSent();
    for (LPARAM ticket = 0; ticket < 1000; ++ticket)
        ServerWndProc(ServerWindow(), HM_CALL, 0, ticket);
    EXPECT_EQ(2, runs);
    EXPECT_TRUE(PumpUntil([] { return !SomethingIsSent(); }));
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
    AwaitSent();
    // Its end doesn't hand out what waits for the window.
    DestroyServerWindow();
    EXPECT_TRUE(PumpUntil([&] { return returned.load(); }));
    caller.join();
    EXPECT_FALSE(ran);
}

TEST_F(ServerMessagesTest, AndExportsTellOfTheDesktops) {
    char name[300];
    unsigned id = 99;
    const std::string longest(260, 'n');
    desktopList.Add(longest.c_str(), 8);
    for (const auto& [index, wanted, wantedId] :
         {std::tuple(0u, std::string("Default"), 0u), {2u, "Desktop 2", 2u}, {4u, longest, 8u}}) {
        std::memset(name, 'x', sizeof(name));
        EXPECT_EQ(1, GetDesktop(index, name, 0, &id));
        EXPECT_EQ(wanted, name);
        EXPECT_EQ('x', name[wanted.size() + 1]) << "nothing behind the closing zero";
        EXPECT_EQ(wantedId, id);
    }
    for (const unsigned index : {5u, 0xFFFFFFFFu}) {
        id = 99;
        name[0] = 'x';
        EXPECT_EQ(0, GetDesktop(index, name, sizeof(name), &id));
        EXPECT_TRUE(id == 99 && name[0] == 'x');
    }
    EXPECT_EQ(0, SetActiveDesktop(1)) << "the hooks are out";
    Enable();
    for (const auto& [asked, current] : {std::pair(1u, 1u), {1u, 1u}, {77u, 1u}, {AllDesktopsId, 1u}, {8u, 8u}}) {
        EXPECT_EQ(1, SetActiveDesktop(asked));
        EXPECT_EQ(1, GetCurrentDesktopId(&id));
        EXPECT_EQ(current, id) << asked;
    }
    settings.StoreMultiDesk(true);
    EXPECT_EQ(1, IsMultiDeskEnabled());
    settings.StoreMultiDesk(false);
    EXPECT_EQ(0, IsMultiDeskEnabled());
}

}  // namespace
}  // namespace halyard::test
