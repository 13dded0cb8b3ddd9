// The hook procedures with doubles in the place of the behaviours: what a program can do in the middle of a behaviour,
// and what the procedures must not touch.
#include "hook/behaviours.h"
#include "hook/hook_procs.h"
#include "hook/reload.h"
#include "hook/thread_table.h"
#include "support/store_fixture.h"
#include "support/test_windows.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <new>
#include <string>

namespace {

const void* watched = nullptr;
int releases = 0;
std::function<void(const std::string&)> during;  // runs inside each behaviour

void Enter(const char* behaviour) {
    if (during) during(behaviour);
}

}  // namespace

// In the place of the language's own for the whole program. Its allocation is that of the C library.
[[gnu::noinline]] void operator delete(void* block) noexcept {
    if (block && block == watched) ++releases;
    std::free(block);
}
[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept {
    operator delete(block);
}

namespace halyard {

void AddMenuExtension(TrackedWindow&) noexcept {
    Enter("extension");
}
void RemoveMenuExtension(TrackedWindow&) noexcept {}
void UpdateMenuExtension(TrackedWindow&, HMENU, LPARAM) noexcept {}
bool ChangesSpanning(const TrackedWindow&, WPARAM) noexcept {
    return true;
}
bool HandleSysCommand(TrackedWindow&, WPARAM, LPARAM) noexcept {
    Enter("command");
    return true;
}
void SaveWindowMemory(TrackedWindow&) noexcept {}
void RestoreWindowMemory(TrackedWindow&) noexcept {
    Enter("memory");
}
void BeginDragLoop(TrackedWindow&) noexcept {
    Enter("drag");
}
void PlaceDialog(TrackedWindow&) noexcept {
    Enter("dialog");
}
void RefreshAfterDisplayChange(TrackedWindow&) noexcept {
    Enter("displays");
}
void ReloadSettings(LPARAM) noexcept {}
void ReloadDesktops(LPARAM) noexcept {}

namespace test {
namespace {

class HookProcsTest : public testing::Test {
protected:
    HookProcsTest() {
        profile.isServerProcess = false;
        profile.hookEngineActive = true;
        threadTable = &table;
        SetServerWindow(server.get());
        // Any value but 0: the procedure is called by the test and not by the platform.
        SetCallWndProcRetHook(HandleFromBits<HHOOK>(0x7FFF0001));
        SetGetMessageHook(nullptr);
    }
    ~HookProcsTest() override {
        threadTable = nullptr;
        during = nullptr;
    }
    static unsigned RecordCount() { return threadTable->ForCurrentThread()->Count(); }
    static void Observe(HWND window, UINT message, WPARAM wParam = 0) {
        const CWPRETSTRUCT event = {0, 0, wParam, message, window};
        CallWndProcRetHookProc(HC_ACTION, 0, reinterpret_cast<LPARAM>(&event));
    }
    // Whether it has been cancelled.
    static bool Take(HWND window, WPARAM remove = PM_REMOVE) {
        MSG taken = {window, WM_SYSCOMMAND, SC_CLOSE, 0, 0, {0, 0}};
        GetMessageHookProc(HC_ACTION, remove, reinterpret_cast<LPARAM>(&taken));
        return taken.message == WM_NULL;
    }
    KeptState kept;
    ThreadTable table;
    TestWindow server{WindowForm{.style = WS_POPUP}};
};

TEST_F(HookProcsTest, LeaveWhatIsOnlyLookedAtAndDoNothingOnceTheyAreRemoved) {
    const TestWindow window;
    EXPECT_FALSE(Take(window.get(), PM_NOREMOVE));
    SetCallWndProcRetHook(nullptr);
    Observe(window.get(), WM_CREATE);
    EXPECT_EQ(0u, RecordCount());
}

// What a behaviour does may make the program destroy the window, whose end then comes through the hook at once.
TEST_F(HookProcsTest, OutliveTheirWindowsUntilTheHookCallEnds) {
    const struct {
        const char* behaviour;
        UINT message;
    } cases[] = {{"dialog", WM_ACTIVATE},    {"memory", WM_ACTIVATE},        {"extension", WM_CREATE},
                 {"drag", WM_ENTERSIZEMOVE}, {"displays", WM_DISPLAYCHANGE}, {"command", WM_SYSCOMMAND}};
    const TestWindow owner(WindowForm{.style = WS_POPUP});
    const WindowForm dialog = {.style = WS_POPUP | WS_CAPTION | WS_SYSMENU, .parent = owner.get()};
    settings.SetWindowMem(true);
    settings.SetAppWindowMem(true);
    for (const auto& [behaviour, message] : cases) {
        SCOPED_TRACE(behaviour);
        const TestWindow window(behaviour == std::string("dialog") ? dialog : WindowForm{});
        TrackedWindow& record = *TrackedWindowOf(window.get());
        record.Classify();
        record.placed = false;
        watched = &record;
        releases = 0;
        int inside = -1;
        during = [&](const std::string& entered) {
            if (entered != behaviour || inside >= 0) return;
            DestroyWindow(window.get());
            Observe(window.get(), WM_DESTROY);
            EXPECT_EQ(0u, RecordCount());
            inside = releases;
        };
        if (message == WM_SYSCOMMAND)
            EXPECT_TRUE(Take(window.get()));
        else
            Observe(window.get(), message, WA_ACTIVE);
        during = nullptr;
        EXPECT_EQ(0, inside) << "released while it was in use, or never reached (-1)";
        EXPECT_EQ(1, releases);
        watched = nullptr;
    }
}

}  // namespace
}  // namespace test
}  // namespace halyard
