// The server's start, its states and its end, and what every process does with the library.
#include "server/exports.h"
#include "server/server_fixture.h"
#include "server/server_window.h"

namespace halyard::test {
namespace {

class StatesTest : public ServerTest {
protected:
    // Whether the window stands, the hooks are in, and what `Run` says in the registry ("-" for nothing).
    static std::string State() {
        const bool hooks = CallWndProcRetHook() && GetMessageHook();
        EXPECT_EQ(hooks, HooksInstalled());
        EXPECT_EQ(hooks, CallWndProcRetHook() || GetMessageHook());
        EXPECT_EQ(ServerWindow(), FindWindowA("TevralHalyardServerWndClass", nullptr));
        EXPECT_FALSE(IsWindowVisible(ServerWindow()));
        const auto run = StoredDword(HKEY_CURRENT_USER, ProductPath(), "Run");
        return std::string(ServerWindow() ? "window " : "") + (hooks ? "hooks " : "") +
               (run ? std::to_string(*run) : "-");
    }
};

TEST_F(StatesTest, FollowFromEachOther) {
    const struct {
        const char* what;
        void (*step)();
        const char* state;
        bool enabled;
    } steps[] = {
        {"start", ServerInit, "window -", false},
        {"enable", Enable, "window hooks 1", true},
        {"enable once more", Enable, "window hooks 1", true},
        {"restart into rest", [] { Send(HM_RESTART, 0, 5); }, "window 1", true},
        {"restart", [] { Send(HM_RESTART, 1); }, "window hooks 1", true},
        {"restart again", [] { Send(HM_RESTART, 2); }, "window hooks 1", true},
        {"disable", Disable, "window 0", false},
        {"disable again", Disable, "window 0", false},
        {"restart into rest while out", [] { Send(HM_RESTART, 0); }, "window 0", false},
        {"end", ServerUninit, "0", false},
        {"end again", ServerUninit, "0", false},
        {"start once more", ServerInit, "window 0", false},
        {"start while there is one", ServerInit, "window 0", false},
        {"enable", Enable, "window hooks 1", true},
        {"end while enabled", ServerUninit, "1", true},
        {"start enabled", ServerInit, "window hooks 1", true},
        {"end", ServerUninit, "1", true},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.what);
        const HHOOK before = CallWndProcRetHook();
        step.step();
        EXPECT_EQ(step.state, State());
        EXPECT_EQ(step.enabled ? 1 : 0, IsEnabled());
        EXPECT_TRUE(std::string(step.what) != "enable once more" || before == CallWndProcRetHook());
    }
}

TEST_F(StatesTest, AKilledServerIsRecoveredFrom) {
    const TestWindow reused(WindowForm{.style = WS_POPUP});
    SetServerWindow(reused.get());
    SetHooksInstalled(true);
    SetCallWndProcRetHook(HandleFromBits<HHOOK>(0x7FFF0001));
    SetGetMessageHook(HandleFromBits<HHOOK>(0x7FFF0002));
    SetCurrentDesktopId(3);
    ServerInit();
    EXPECT_NE(reused.get(), ServerWindow());
    EXPECT_EQ("window -", State());
    EXPECT_EQ(DefaultDesktopId, CurrentDesktopId());
    ServerUninit();
    EXPECT_TRUE(IsWindow(reused.get()));

    const TestClass serverClass(ServerWindowClass);
    const TestWindow first({.className = ServerWindowClass, .style = WS_POPUP});
    SetServerWindow(first.get());
    SetCurrentDesktopId(2);
    ServerInit();
    EXPECT_EQ(first.get(), GetServerHwnd()) << "a second server makes no window";
    EXPECT_EQ(2u, CurrentDesktopId());
    SetServerWindow(nullptr);
}

}  // namespace
}  // namespace halyard::test
