// The server in the test's own process: its states, and what other programs and threads ask of it at the wrong moment.
#include "desktops/desktop_list.h"
#include "desktops/desktop_switch.h"
#include "desktops/window_switch.h"
#include "hook/thread_table.h"
#include "process/server_call.h"
#include "server/attach.h"
#include "server/exports.h"
#include "server/lifecycle.h"
#include "server/server_messages.h"
#include "support/store_fixture.h"
#include "support/test_windows.h"

#include <atomic>
#include <thread>

namespace halyard::test {
namespace {

// The library as loaded on an empty registry, with the wizard out of the way; no server yet.
struct ServerTest : StoreTest {
    ServerTest() {
        std::memset(kept.Block(), 0, sizeof(SharedBlock));
        profile.hookEngineActive = true;
        WriteNumber(published::ProductKey, "RunWizard", 1);
        OnLoad(GetModuleHandleA(nullptr));
        // The platform tells of a fault; the library's own report would ask the user.
        SetUnhandledExceptionFilter(nullptr);
    }
    ~ServerTest() override {
        StopServer();
        OnUnload();
        delete std::exchange(threadTable, nullptr);
        ReleaseAllWindows();
    }
    static LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendMessageA(ServerWindow(), message, wParam, lParam);
    }
    // Whether the window stands, the hooks are in, and what `Run` says in the registry, 9 for nothing.
    static std::string State() {
        const bool hooks = CallWndProcRetHook() && GetMessageHook();
        EXPECT_TRUE(hooks == HooksInstalled() && hooks == (CallWndProcRetHook() || GetMessageHook()));
        EXPECT_EQ(ServerWindow(), FindWindowA(published::ServerClass, nullptr));
        const DWORD run = NumberOr(published::ProductKey, "Run", 9);
        EXPECT_EQ(IsEnabled() != 0, run == 1);
        return std::string(ServerWindow() ? "window " : "") + (hooks ? "hooks " : "") + std::to_string(run);
    }
};

TEST_F(ServerTest, StatesFollowFromEachOther) {
    const struct {
        const char* what;
        void (*step)();
        const char* state;
    } steps[] = {
        {"start", ServerInit, "window 9"},
        {"enable", Enable, "window hooks 1"},
        {"restart into rest", [] { Send(HM_RESTART, 0, 5); }, "window 1"},
        {"restart", [] { Send(HM_RESTART, 2); }, "window hooks 1"},
        {"disable", Disable, "window 0"},
        {"restart into rest while out", [] { Send(HM_RESTART, 0); }, "window 0"},
        {"restart", [] { Send(HM_RESTART, 1); }, "window hooks 1"},
        {"disable twice", [] { Disable(), Disable(); }, "window 0"},
        {"end twice", [] { ServerUninit(), ServerUninit(); }, "0"},
        {"start while there is one", [] { ServerInit(), ServerInit(); }, "window 0"},
        {"enable", Enable, "window hooks 1"},
        {"end while enabled", ServerUninit, "1"},
        {"start enabled", ServerInit, "window hooks 1"},
    };
    for (const auto& [what, step, state] : steps) {
        step();
        EXPECT_EQ(state, State()) << what;
    }
    const HHOOK before = CallWndProcRetHook();
    Enable();
    EXPECT_EQ(before, CallWndProcRetHook()) << "enabled already";
}

TEST_F(ServerTest, CarriesOutAfterASwitchWhatComesInTheMiddleOfIt) {
    ServerInit();
    for (const DesktopId id : {1u, 3u})
        desktopList.Add("Desktop", id);
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

TEST_F(ServerTest, TakesNoHarmFromForgedMessages) {
    ServerInit();
    for (const HWND window : {HWND(nullptr), HandleFromBits<HWND>(0x7FFFFFF0), GetDesktopWindow()})
        for (const UINT message : {HM_WINDOW_ATTACH, HM_WINDOW_ATTACH, HM_WINDOW_RETURNS, HM_WINDOW_DETACH,
                                   HM_WINDOW_CHANGED, HM_TAB_ADD, HM_TAB_DELETE, HM_REFRESH_EXTRAS})
            EXPECT_EQ(0, Send(message, reinterpret_cast<WPARAM>(window), 1)) << message;
    for (const LPARAM pointer : {LPARAM(0), LPARAM(1), LPARAM(0x7FFFFFF0), LPARAM(-1)})
        for (const UINT message : {HM_TASKBAR_DELETE, HM_CALL})
            EXPECT_EQ(0, Send(message, 0, pointer)) << message;
    Send(WM_HOTKEY, 0xBFFF, 0);
    Send(WM_DISPLAYCHANGE);
    Send(WM_CLOSE);
    Send(WM_SYSCOMMAND, SC_CLOSE);
    EXPECT_TRUE(IsWindow(ServerWindow()));
    EXPECT_EQ(0u, CurrentDesktopId());
}

TEST_F(ServerTest, RunsTheWorkOfAThreadOnceHoweverManyTicketsAreForged) {
    ServerInit();
    const auto somethingIsSent = [] { return (HIWORD(GetQueueStatus(QS_SENDMESSAGE)) & QS_SENDMESSAGE) != 0; };
    std::atomic<int> runs = 0;
    EXPECT_TRUE(RunBeside([&] { RunOnServerThread([&] { ++runs; }); }));
    EXPECT_EQ(1, runs);
    std::thread second([&] { RunOnServerThread([&] { ++runs; }); });
    // Without answering it.
    for (const DWORD start = GetTickCount(); !somethingIsSent() && GetTickCount() - start < WaitLimit;)
        Sleep(1);
    for (LPARAM ticket = 0; ticket < 1000; ++ticket)
        ServerWndProc(ServerWindow(), HM_CALL, 0, ticket);
    EXPECT_EQ(2, runs);
    EXPECT_TRUE(Eventually([&] { return !somethingIsSent(); }));
    second.join();
    EXPECT_EQ(2, runs);
}

}  // namespace
}  // namespace halyard::test
