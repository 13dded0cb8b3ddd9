// What other programs and other threads ask of the server.
#include "desktops/desktop_switch.h"
#include "hotkeys/hotkeys.h"
#include "process/server_call.h"
#include "server/exports.h"
#include "server/server_fixture.h"
#include "server/server_window.h"

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

TEST_F(ServerMessagesTest, PurgeTheMapAndEndTheSession) {
    HWND dead = TestWindow().get();
    Send(HM_WINDOW_RETURNS, AsParameter(dead), -1);
    Send(WM_TIMER, 3);
    EXPECT_EQ(DefaultDesktopId, windowDesktopMap.DesktopOfWindow(dead)) << "of no desktop that there is, another timer";
    Send(WM_TIMER, PurgeTimer);
    EXPECT_EQ(NoDesktop, windowDesktopMap.DesktopOfWindow(dead));
    Send(HM_SWITCH_DESKTOP, 0, 2);
    Send(WM_ENDSESSION, FALSE, 0);
    EXPECT_EQ(0u, CurrentDesktopId());
    SetCurrentDesktopId(8);
    ActivateNext();
    EXPECT_EQ(8u, CurrentDesktopId()) << "from one that is not in the list";
}

TEST_F(ServerMessagesTest, ThatComeInTheMiddleOfASwitchAreCarriedOutAfterIt) {
    TestWindow leaving(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    DesktopId atRequest = 99;
    leaving.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_WINDOWPOSCHANGED && atRequest == 99) {
            Activate(3);
            atRequest = CurrentDesktopId();
        }
        return std::nullopt;
    };
    desktopList.Find(1)->colour = 0x101010;
    AssignWindow(leaving.get(), 0);
    Activate(1);
    EXPECT_EQ(1u, atRequest) << "99: it was never hidden";
    EXPECT_EQ(3u, CurrentDesktopId());
    EXPECT_EQ(0x101010u, desktopList.Find(1)->colour) << "it was left with the colour that it had just been given";
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
    const auto bound = [] {
        Hotkey hotkey;
        return HotkeyByIndex(0, hotkey) && hotkey.atom;
    };
    const BYTE controlAltF9[] = {1, 1, 0, 0, VK_F9, 0, 0, 0};
    Store(HKEY_CURRENT_USER, ProductPath("HotKeys"), "1", REG_BINARY, Bytes(controlAltF9, controlAltF9 + 8));
    EXPECT_TRUE(RunBeside([&] {
        RunOnServerThread([&] { ranOn = GetCurrentThreadId(); });
        EXPECT_EQ(server, ranOn) << "it is waited for";
        Enable();
        EXPECT_TRUE(bound()) << "the platform takes hotkeys on the thread of their window only";
        EXPECT_EQ(1, SetActiveDesktop(2));
        ActivateNext();
        EXPECT_EQ(3u, CurrentDesktopId());
        RemoveDesktop(3);
        EXPECT_EQ(0u, CurrentDesktopId());
        UnregisterHotkeys();
        EXPECT_FALSE(bound());
        Disable();
    }));
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
