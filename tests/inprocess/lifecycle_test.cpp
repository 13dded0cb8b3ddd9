// The server's start, its states and its end, and what every process does with the library.
#include "process/registry_key.h"
#include "server/exports.h"
#include "server/server_window.h"
#include "server_fixture.h"

namespace halyard::test {
namespace {

LONG WINAPI OwnFilter(EXCEPTION_POINTERS*) {
    return EXCEPTION_CONTINUE_SEARCH;
}

class LoadTest : public ServerTest {};

TEST_F(LoadTest, ReadsWhatTheProcessNeeds) {
    const auto fill = [](HKEY hive, DWORD mode, const char* desktop) {
        StoreDword(hive, ProductPath(), "CtrlMax", mode);
        MakeKey(hive, ProductPath("Desktops\\") + desktop);
    };
    fill(HKEY_CURRENT_USER, 1, "3");
    StoreDword(HKEY_CURRENT_USER, AppPath(), "WindowMem", 1);
    Reload();
    EXPECT_EQ(GetModuleHandleA(nullptr), profile.moduleInstance);
    EXPECT_TRUE(profile.isNtFamily);
    EXPECT_NE(nullptr, threadTable);
    EXPECT_TRUE(profile.hookEngineActive);
    EXPECT_EQ(RegisterWindowMessageA("SHELLHOOK"), profile.shellHookMessage);
    EXPECT_EQ(RegisterWindowMessageA("TaskbarCreated"), profile.taskbarCreatedMessage);
    EXPECT_EQ(RegisterWindowMessageA("TevralHalyardSettingMsg"), profile.settingMessage);
    EXPECT_EQ(RegisterWindowMessageA("TevralHalyardRestartMsg"), profile.restartMessage);
    EXPECT_EQ(1u, settings.CtrlMax());
    EXPECT_TRUE(settings.AppWindowMem());
    EXPECT_TRUE(desktopList.Has(3));
    EXPECT_EQ(nullptr, profile.progmanWindow);
    EXPECT_EQ(nullptr, profile.desktopViewWindow);
    // The hive is chosen ahead of both.
    fill(HKEY_LOCAL_MACHINE, 2, "4");
    Reload();
    EXPECT_EQ(2u, settings.CtrlMax());
    EXPECT_TRUE(desktopList.Has(4) && !desktopList.Has(3));
}

TEST_F(LoadTest, MakesTheProductKey) {
    DeleteTree(HKEY_CURRENT_USER, "Software\\Tevral, Inc.");
    Reload();
    EXPECT_TRUE(KeyExists(HKEY_CURRENT_USER, ProductPath("Desktops")));
    EXPECT_EQ(75u, settings.DragTransPerCent()) << "the default of a key that opens";
}

TEST_F(LoadTest, LeavesAnExcludedProgramAlone) {
    SetExcluded();
    Reload();
    EXPECT_FALSE(profile.hookEngineActive);
}

TEST_F(LoadTest, StandsInTheWayOfCrashesUntilItIsUnloaded) {
    Unload();
    const auto before = SetUnhandledExceptionFilter(OwnFilter);
    OnLoad(GetModuleHandleA(nullptr));
    const auto ours = SetUnhandledExceptionFilter(OwnFilter);
    EXPECT_NE(OwnFilter, ours);
    SetUnhandledExceptionFilter(ours);
    Unload();
    EXPECT_EQ(OwnFilter, SetUnhandledExceptionFilter(before));
    OnLoad(GetModuleHandleA(nullptr));
}

TEST_F(LoadTest, UnloadingTakesLeaveAndEndsOnlyTheServersOwnWindow) {
    TestWindow server(WindowForm{.style = WS_POPUP});
    int departures = 0;
    server.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == HM_WINDOW_DETACH) ++departures;
        return std::nullopt;
    };
    SetServerWindow(server.get());
    const TestWindow window;
    ASSERT_TRUE(TrackedWindowOf(window.get())->IsManaged());
    OnUnload();
    EXPECT_TRUE(PumpUntil([&] { return departures > 0; }));
    EXPECT_FALSE(profile.hookEngineActive);
    EXPECT_EQ(server.get(), ServerWindow());
    profile.isServerProcess = true;
    OnUnload();
    EXPECT_EQ(nullptr, ServerWindow());
    EXPECT_FALSE(IsWindow(server.get()));
}

// What CreateWindowEx was asked for.
CREATESTRUCTA asked;
std::string askedClass;

LRESULT CALLBACK SeeCreation(int code, WPARAM window, LPARAM what) {
    if (code == HCBT_CREATEWND) {
        char name[64] = {};
        GetClassNameA(reinterpret_cast<HWND>(window), name, sizeof(name));
        if (askedClass.empty()) asked = *reinterpret_cast<const CBT_CREATEWNDA*>(what)->lpcs;
        if (askedClass.empty()) askedClass = name;
    }
    return CallNextHookEx(nullptr, code, window, what);
}

TEST_F(LoadTest, TheServerWindowIsHiddenAndTheProgramsOwn) {
    askedClass.clear();
    HHOOK hook = SetWindowsHookExA(WH_CBT, SeeCreation, nullptr, GetCurrentThreadId());
    CreateServerWindow();
    UnhookWindowsHookEx(hook);
    HWND window = GetServerHwnd();
    ASSERT_TRUE(IsWindow(window));
    EXPECT_EQ("TevralHalyardServerWndClass", askedClass);
    EXPECT_EQ(0u, asked.dwExStyle);
    EXPECT_EQ(0, asked.style & ~WS_CLIPSIBLINGS);
    EXPECT_EQ(0, asked.x);
    EXPECT_EQ(0, asked.y);
    EXPECT_EQ(1, asked.cx);
    EXPECT_EQ(1, asked.cy);
    EXPECT_EQ(nullptr, asked.hwndParent);
    EXPECT_EQ(nullptr, asked.hMenu);
    EXPECT_EQ(GetModuleHandleA(nullptr), asked.hInstance);
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_EQ(0, GetWindowTextLengthA(window));
    WNDCLASSEXA own = {};
    own.cbSize = sizeof(own);
    ASSERT_TRUE(GetClassInfoExA(GetModuleHandleA(nullptr), ServerWindowClass, &own));
    EXPECT_EQ(ServerWndProc, own.lpfnWndProc);
    EXPECT_EQ(0u, own.style);
    EXPECT_TRUE(!own.cbClsExtra && !own.cbWndExtra && !own.hIcon && !own.hCursor && !own.hbrBackground &&
                !own.lpszMenuName);
    EXPECT_TRUE(KillTimer(window, PurgeTimer)) << "the timer runs";

    CreateServerWindow();
    EXPECT_EQ(window, GetServerHwnd()) << "there is one already";
    DestroyServerWindow();
    EXPECT_EQ(nullptr, GetServerHwnd());
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(GetClassInfoExA(GetModuleHandleA(nullptr), ServerWindowClass, &own));
}

class StatesTest : public ServerTest {
protected:
    // Whether the window stands, the hooks are in, and what `Run` says in the registry ("-" for nothing).
    static std::string State() {
        const bool hooks = CallWndProcRetHook() && GetMessageHook();
        EXPECT_EQ(hooks, HooksInstalled());
        EXPECT_EQ(hooks, CallWndProcRetHook() || GetMessageHook());
        EXPECT_EQ(ServerWindow() != nullptr, IsWindow(ServerWindow()) != FALSE);
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
        {"nothing", [] {}, "-", false},
        {"start", ServerInit, "window -", false},
        {"enable", Enable, "window hooks 1", true},
        {"restart into rest", [] { EXPECT_EQ(0, Send(HM_RESTART, 0, 5)); }, "window 1", true},
        {"restart", [] { EXPECT_EQ(0, Send(HM_RESTART, 1)); }, "window hooks 1", true},
        {"restart again", [] { EXPECT_EQ(0, Send(HM_RESTART, 2)); }, "window hooks 1", true},
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
        step.step();
        EXPECT_EQ(step.state, State());
        EXPECT_EQ(step.enabled ? 1 : 0, IsEnabled());
    }
}

TEST_F(StatesTest, EnablingTwiceLeavesTheHooksAlone) {
    ServerInit();
    Enable();
    const HHOOK before[] = {CallWndProcRetHook(), GetMessageHook()};
    StoreDword(HKEY_CURRENT_USER, ProductPath(), "Run", 0);
    Enable();
    EXPECT_EQ(before[0], CallWndProcRetHook());
    EXPECT_EQ(before[1], GetMessageHook());
    EXPECT_EQ("window hooks 1", State()) << "Run is written again";
}

TEST_F(StatesTest, ARestartBringsTheRegistryIntoForce) {
    ServerInit();
    StoreDword(HKEY_CURRENT_USER, ProductPath(), "CtrlMax", 2);
    StoreDword(HKEY_CURRENT_USER, ProductPath(), "Run", 1);
    Send(HM_RESTART, 0);
    EXPECT_EQ(2u, settings.CtrlMax());
    EXPECT_EQ(1, IsEnabled());
    EXPECT_FALSE(HooksInstalled());
}

TEST_F(StatesTest, EveryWindowReportsWhileTheHooksAreIn) {
    const TestWindow before;
    ServerInit();
    Enable();
    EXPECT_TRUE(PumpUntil([&] { return windowDesktopMap.Find(before.get()) != nullptr; }));
    const TestWindow later;
    const TestWindow bare(WindowForm{.style = WS_POPUP});
    HWND gone = TestWindow().get();
    EXPECT_TRUE(PumpUntil([&] { return windowDesktopMap.Find(later.get()) && windowDesktopMap.Find(gone); }));
    EXPECT_EQ(AllDesktopsId, windowDesktopMap.Find(later.get())->desktopId) << "a window of the server's process";
    EXPECT_EQ(nullptr, windowDesktopMap.Find(bare.get()));
    // Its end was not reported; the purge finds it.
    Send(WM_TIMER, PurgeTimer);
    EXPECT_EQ(nullptr, windowDesktopMap.Find(gone));
    EXPECT_NE(nullptr, windowDesktopMap.Find(later.get()));
    Disable();
    PumpAll();
    EXPECT_EQ(0u, windowDesktopMap.Count());
}

TEST_F(StatesTest, RemovingTheHooksShowsEveryWindowOnTheDefaultDesktop) {
    AddDesktops(2);
    ServerInit();
    Enable();
    PumpAll();
    const TestWindow window(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    Send(HM_WINDOW_ATTACH, reinterpret_cast<WPARAM>(window.get()), 1);
    Send(HM_WINDOW_ATTACH, reinterpret_cast<WPARAM>(window.get()), 1);
    Send(HM_SWITCH_DESKTOP, 0, 2);
    EXPECT_TRUE(Becomes(false, window.get()));
    Disable();
    EXPECT_EQ(DefaultDesktopId, CurrentDesktopId());
    EXPECT_TRUE(Becomes(true, window.get()));
    EXPECT_EQ(0u, windowDesktopMap.Count());
}

TEST_F(StatesTest, AKilledServerIsRecoveredFrom) {
    TestWindow window(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    const TestWindow reused(WindowForm{.style = WS_POPUP});
    HWND dead = TestWindow().get();
    for (HWND left : {dead, reused.get()}) {
        {
            // The map of the server that is killed goes without showing what it has hidden.
            WindowDesktopMap lost;
            lost.Assign(window.get(), 3);
            lost.SweepAll();
            EXPECT_TRUE(Becomes(false, window.get()));
        }
        SetServerWindow(left);
        SetHooksInstalled(true);
        SetCallWndProcRetHook(HandleFromBits<HHOOK>(0x7FFF0001));
        SetGetMessageHook(HandleFromBits<HHOOK>(0x7FFF0002));
        SetCurrentDesktopId(3);
        ServerInit();
        EXPECT_NE(left, ServerWindow());
        EXPECT_EQ("window -", State());
        EXPECT_EQ(DefaultDesktopId, CurrentDesktopId());
        EXPECT_TRUE(Becomes(true, window.get()));
        ServerUninit();
    }
    EXPECT_TRUE(IsWindow(reused.get()));
}

TEST_F(StatesTest, ASecondServerMakesNoWindow) {
    const TestClass serverClass(ServerWindowClass);
    const TestWindow first({.className = ServerWindowClass, .style = WS_POPUP});
    SetServerWindow(first.get());
    SetCurrentDesktopId(2);
    ServerInit();
    EXPECT_EQ(first.get(), GetServerHwnd());
    EXPECT_TRUE(profile.isServerProcess);
    EXPECT_EQ(2u, CurrentDesktopId());
    SetServerWindow(nullptr);
}

class WizardTest : public ServerTest {
protected:
    WizardTest() {
        char path[MAX_PATH];
        GetModuleFileNameA(nullptr, path, sizeof(path));
        folder = path;
        folder.erase(folder.rfind('\\') + 1);
        wizard = folder + "tvlhlwiz.exe";
        StoreDword(HKEY_CURRENT_USER, ProductPath(), "RunWizard", 0);
        settings.Load();
        DeleteTree(HKEY_CURRENT_USER, Record);
    }
    ~WizardTest() override {
        EXPECT_TRUE(Ended());
        DeleteTree(HKEY_CURRENT_USER, Record);
    }

    // Takes the wizard away, which the platform refuses while it runs.
    bool TakeAway() const { return DeleteFileA(wizard.c_str()) || GetLastError() == ERROR_FILE_NOT_FOUND; }
    bool Ended() const {
        return PumpUntil([this] { return TakeAway(); }, 4 * Deadline);
    }
    void PlaceWizard() {
        ASSERT_TRUE(CopyFileA((folder + "wizard_stand_in.exe").c_str(), wizard.c_str(), FALSE)) << GetLastError();
    }
    static DWORD Starts() { return StoredDword(HKEY_CURRENT_USER, Record, "Starts").value_or(0); }
    static DWORD RunWizardStored() { return StoredDword(HKEY_CURRENT_USER, ProductPath(), "RunWizard").value_or(9); }

    static constexpr char Record[] = "Software\\HalyardWizardStandIn";
    std::string folder;
    std::string wizard;
};

TEST_F(WizardTest, IsStartedOnceWhenItIsThere) {
    ServerInit();
    EXPECT_EQ(0u, RunWizardStored()) << "it is missing, and due again";
    ServerUninit();
    PlaceWizard();
    ServerInit();
    EXPECT_EQ(1u, RunWizardStored());
    EXPECT_TRUE(settings.RunWizard());
    EXPECT_TRUE(PumpUntil([] { return Starts() == 1; }, 4 * Deadline));
    const std::string expected = wizard + " /halyard";
    EXPECT_EQ(expected + '\0', StoredText(HKEY_CURRENT_USER, Record, "CommandLine"));
    ServerUninit();
    EXPECT_TRUE(Ended());
    PlaceWizard();
    ServerInit();
    EXPECT_TRUE(TakeAway()) << "it has been started again";
}

TEST_F(WizardTest, IsNotForAUserWhoMayNotChangeTheMachinesSettings) {
    UseMachineHive();
    settings.Load();
    PlaceWizard();
    {
        const AsOrdinaryUser lesser;
        ServerInit();
        ServerUninit();
    }
    EXPECT_FALSE(settings.RunWizard());
    EXPECT_TRUE(TakeAway()) << "it has been started";
    PlaceWizard();
    ServerInit();
    EXPECT_TRUE(PumpUntil([] { return Starts() == 1; }, 4 * Deadline));
}

}  // namespace
}  // namespace halyard::test
