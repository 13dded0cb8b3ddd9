// The records of threads and windows: how they come, how long they stay, what their end does.
#include "hook/hook_procs.h"
#include "hook_fixture.h"
#include "release_watch.h"

#include <thread>

namespace halyard::test {
namespace {

class TablesTest : public HookTest {
protected:
    ~TablesTest() override { WatchRelease(nullptr); }

    static void Observe(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        const CWPRETSTRUCT event = {0, lParam, wParam, message, window};
        CallWndProcRetHookProc(HC_ACTION, 0, reinterpret_cast<LPARAM>(&event));
    }
};

TEST_F(TablesTest, ANewRecordKnowsNothingButTheWindowAndTheDesktop) {
    const TestWindow window;
    struct {
        bool server;
        DesktopId current;
        DesktopId expected;
    } const cases[] = {{false, 0, 0}, {false, 12, 12}, {true, 12, AllDesktopsId}};
    for (const auto& test : cases) {
        profile.isServerProcess = test.server;
        SetCurrentDesktopId(test.current);
        const TrackedWindow& record = *TrackedWindowOf(window.get());
        EXPECT_EQ(window.get(), record.window);
        EXPECT_FALSE(record.classified || record.isManaged || record.isDialog || record.maximisedAcross);
        EXPECT_TRUE(record.placed);
        EXPECT_EQ(0, record.lastHitTest);
        EXPECT_EQ(nullptr, record.submenu);
        EXPECT_EQ(test.expected, record.desktopId) << "server " << test.server;
        // The desktop is that of the first sight.
        SetCurrentDesktopId(40);
        EXPECT_EQ(test.expected, TrackedWindowOf(window.get())->desktopId);
        threadTable->ForCurrentThread()->Remove(window.get());
    }
    EXPECT_EQ(Calls{}, recording.Take());
}

TEST_F(TablesTest, EachThreadHasItsOwnRecords) {
    const TestWindow window;
    ThreadWindows* own = threadTable->ForCurrentThread();
    EXPECT_EQ(GetCurrentThreadId(), own->ThreadId());
    TrackedWindow* record = own->ForWindow(window.get());
    ThreadWindows* others = nullptr;
    std::thread([&] {
        others = threadTable->ForCurrentThread();
        others->ForWindow(window.get());
    }).join();
    EXPECT_NE(own, others);
    EXPECT_EQ(others, threadTable->ForThread(others->ThreadId()));
    EXPECT_EQ(own, threadTable->ForCurrentThread());
    EXPECT_EQ(record, own->ForWindow(window.get()));
    others->Remove(window.get());
    EXPECT_EQ(1u, own->Count());
    // A window that isn't known.
    own->Remove(server.get());
    EXPECT_EQ(1u, own->Count());
    own->Remove(window.get());
    EXPECT_EQ(0u, own->Count());
}

TEST_F(TablesTest, IsClassifiedWhenFirstAskedAndNotAgain) {
    const TestWindow window;
    Named(window);
    TrackedWindow& record = *TrackedWindowOf(window.get());
    EXPECT_TRUE(record.IsManaged());
    EXPECT_EQ(Calls{"AddMenuExtension"}, recording.Take());
    SetWindowLongA(window.get(), GWL_STYLE, static_cast<LONG>(WS_POPUP));
    EXPECT_TRUE(record.IsManaged());
    EXPECT_FALSE(record.IsDialog());
    EXPECT_EQ(Calls{}, recording.Take());
    record.Classify();
    EXPECT_FALSE(record.IsManaged());
    EXPECT_EQ(Calls{"RemoveMenuExtension"}, recording.Take());
}

TEST_F(TablesTest, ReportsToTheServer) {
    const TestWindow owner(WindowForm{.style = WS_POPUP});
    const TestWindow managed(WindowForm{.style = WS_POPUP | WS_OVERLAPPEDWINDOW, .parent = owner.get()});
    const TestWindow bare(WindowForm{.style = WS_POPUP});
    Named(owner, "owner");
    Named(managed, "managed");
    Named(bare, "bare");
    for (const auto& [id, text] : {std::pair<DesktopId, std::string>(7, "7"), {AllDesktopsId, "-2"}}) {
        for (const TestWindow* window : {&managed, &bare}) {
            TrackedWindow& record = Known(window->get());
            record.desktopId = id;
            record.NotifyServer(true);
            record.NotifyServer(false);
            const bool reported = window == &managed;
            EXPECT_EQ(reported ? Calls({"post ATTACH " + text + " managed", "post DETACH " + text + " managed"})
                               : Calls{},
                      recording.Take());
        }
        TrackedWindow& record = Known(managed.get());
        profile.program.qlplay = false;
        record.SendDesktopChoice();
        EXPECT_EQ(Calls{"send ATTACH " + text + " managed"}, recording.Take());
        profile.program.qlplay = true;
        record.SendDesktopChoice();
        EXPECT_EQ(Calls{"send ATTACH " + text + " owner"}, recording.Take());
    }
}

TEST_F(TablesTest, TeardownTakesLeaveOfManagedWindowsOnly) {
    const TestWindow first;
    const TestWindow second;
    const TestWindow bare(WindowForm{.style = WS_POPUP});
    const bool inOrder = HandleBits(first.get()) < HandleBits(second.get());
    Named(first, inOrder ? "lower" : "higher");
    Named(second, inOrder ? "higher" : "lower");
    Named(bare, "bare");
    Known(bare.get());
    Known(second.get());
    Known(first.get()).desktopId = AllDesktopsId;
    Known(second.get()).desktopId = AllDesktopsId;
    table.DestroyAll();
    EXPECT_EQ((Calls{"RemoveMenuExtension lower", "post DETACH -2 lower", "RemoveMenuExtension higher",
                     "post DETACH -2 higher"}),
              recording.Take());
    EXPECT_EQ(0u, RecordCount());
    table.DestroyAll();
    EXPECT_EQ(Calls{}, recording.Take());
}

TEST_F(TablesTest, TeardownClassifiesWhatItDoesNotKnowYet) {
    const TestWindow window;
    Named(window);
    TrackedWindowOf(window.get());
    table.DestroyAll();
    EXPECT_EQ((Calls{"AddMenuExtension", "RemoveMenuExtension", "post DETACH 0"}), recording.Take());
}

TEST_F(TablesTest, TeardownReachesTheRecordsOfThreadsThatHaveEnded) {
    const TestWindow window;
    Named(window);
    std::thread([&] { threadTable->ForCurrentThread()->ForWindow(window.get())->isManaged = true; }).join();
    table.DestroyAll();
    const Calls calls = recording.Take();
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ("post DETACH 0", calls.back());
}

// What a behaviour does may make the program destroy the window, whose end then comes through the hook at once.
struct VanishingCase {
    const char* call;
    UINT message;
    bool posted;
    bool dialog;
};

constexpr VanishingCase VanishingCases[] = {
    {"PlaceDialog unplaced", WM_ACTIVATE, false, true},
    {"RestoreWindowMemory", WM_ACTIVATE, false, false},
    {"AddMenuExtension", WM_CREATE, false, false},
    {"BeginDragLoop", WM_ENTERSIZEMOVE, false, false},
    {"RefreshAfterDisplayChange", WM_DISPLAYCHANGE, false, false},
    {"HandleSysCommand F060 0 hit 0", WM_SYSCOMMAND, true, false},
};

TEST_F(TablesTest, ARecordOutlivesItsWindowUntilTheHookCallEnds) {
    const TestWindow owner(WindowForm{.style = WS_POPUP});
    SetWindowMemory(true, true);
    for (const VanishingCase& test : VanishingCases) {
        SCOPED_TRACE(test.call);
        const TestWindow window(test.dialog
                                    ? WindowForm{.style = WS_POPUP | WS_CAPTION | WS_SYSMENU, .parent = owner.get()}
                                    : WindowForm{});
        Named(window);
        TrackedWindow& record = Known(window.get());
        record.placed = false;
        WatchRelease(&record);
        int inside = -1;
        recording.during = [&](const std::string& call) {
            if (call != test.call || inside >= 0) return;
            DestroyWindow(window.get());
            Observe(window.get(), WM_DESTROY);
            EXPECT_EQ(0u, RecordCount());
            inside = Releases();
        };
        if (test.posted) {
            MSG message = {window.get(), test.message, SC_CLOSE, 0, 0, {}};
            GetMessageHookProc(HC_ACTION, PM_REMOVE, reinterpret_cast<LPARAM>(&message));
        } else {
            Observe(window.get(), test.message);
        }
        recording.during = nullptr;
        EXPECT_EQ(0, inside) << "released while it was in use, or never reached (-1)";
        EXPECT_EQ(1, Releases());
        threadTable->ForCurrentThread()->Remove(window.get());
    }
}

TEST_F(TablesTest, NestedHookCallsReleaseWithTheOutermost) {
    const TestWindow window;
    ThreadWindows& windows = *threadTable->ForCurrentThread();
    WatchRelease(windows.ForWindow(window.get()));
    {
        const ThreadWindows::Pin outer(windows);
        {
            const ThreadWindows::Pin inner(windows);
            windows.Remove(window.get());
        }
        EXPECT_EQ(0, Releases());
    }
    EXPECT_EQ(1, Releases());
}

}  // namespace
}  // namespace halyard::test
