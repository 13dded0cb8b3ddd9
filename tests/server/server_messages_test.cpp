// What other programs and other threads ask of the server.
#include "desktops/desktop_switch.h"
#include "hotkeys/hotkeys.h"
#include "process/server_call.h"
#include "server/exports.h"
#include "server/server_fixture.h"
#include "server/server_messages.h"

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
        StartServer(ServerWndProc);
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

}  // namespace
}  // namespace halyard::test
