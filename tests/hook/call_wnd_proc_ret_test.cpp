// Sent messages after the program has answered them, and the records that they leave.
#include "hook/hook_fixture.h"
#include "hook/interest_table.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <thread>

namespace {

const void* watched = nullptr;
int releases = 0;

}  // namespace

// In the place of the language's own for the whole program. Its allocation is that of the C library.
[[gnu::noinline]] void operator delete(void* block) noexcept {
    if (block && block == watched) ++releases;
    std::free(block);
}
[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept {
    operator delete(block);
}

namespace halyard::test {
namespace {

class CallWndProcRetTest : public HookTest {};

TEST_F(CallWndProcRetTest, OnlyPassesOnWhatItMustNotTouch) {
    const TestWindow window;
    const CWPRETSTRUCT creation = {0, 0, 0, WM_CREATE, window.get()};
    struct {
        const char* what;
        bool slot;
        bool active;
        bool table;
        int code;
    } const ways[] = {
        {"hook being removed", false, true, true, HC_ACTION},
        {"engine off", true, false, true, HC_ACTION},
        {"no thread table", true, true, false, HC_ACTION},
        {"negative code", true, true, true, -1},
    };
    for (const auto& way : ways) {
        SCOPED_TRACE(way.what);
        SetCallWndProcRetHook(HandleFromBits<HHOOK>(way.slot ? 0x7FFF0001 : 0));
        profile.hookEngineActive = way.active;
        threadTable = way.table ? &table : nullptr;
        EXPECT_EQ(0, CallWndProcRetHookProc(way.code, 0, reinterpret_cast<LPARAM>(&creation)));
        threadTable = &table;
        EXPECT_EQ(Calls{}, recording.Take());
        EXPECT_EQ(0u, RecordCount());
    }
}

class DesktopMenuTest : public HookTest {
protected:
    DesktopMenuTest() {
        profile.program.explorer = true;
        profile.desktopViewWindow = view.get();
    }
    ~DesktopMenuTest() override { DestroyMenu(menu); }

    TestWindow view{WindowForm{.style = WS_POPUP}};
    TestWindow other{WindowForm{.style = WS_POPUP}};
    HMENU menu = CreatePopupMenu();
};

// What a window of the drawing program sees when its frame is to be painted.
struct Paint {
    DWORD style;
    RECT box;
};

class RecordsTest : public HookTest {};

TEST_F(RecordsTest, TakeLeaveInTeardownOfAllThreads) {
    const TestWindow first;
    const TestWindow second;
    const TestWindow bare(WindowForm{.style = WS_POPUP});
    // A window that isn't managed may have got the extension when the settings changed.
    for (HWND window : {bare.get(), first.get()})
        Known(window).submenu = reinterpret_cast<HMENU>(1);
    Known(second.get());
    recording.subject = bare.get();
    table.DestroyAll();
    Calls ended = recording.Take();
    std::sort(ended.begin(), ended.end());
    EXPECT_EQ((Calls{"RemoveMenuExtension", "RemoveMenuExtension other", "post 1187 0 other", "post 1187 0 other"}),
              ended);
    EXPECT_EQ(0u, RecordCount());
    std::thread([&] { threadTable->ForCurrentThread()->ForWindow(first.get())->isManaged = true; }).join();
    recording.subject = first.get();
    table.DestroyAll();
    const Calls calls = recording.Take();
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ("post 1187 0", calls.back()) << "of a thread that has ended";
}

// What a behaviour does may make the program destroy the window, whose end then comes through the hook at once.
TEST_F(RecordsTest, OutliveTheirWindowsUntilTheHookCallEnds) {
    const struct {
        const char* call;
        UINT message;
        bool dialog;
    } cases[] = {
        {"PlaceDialog unplaced", WM_ACTIVATE, true},
        {"RestoreWindowMemory", WM_ACTIVATE, false},
        {"AddMenuExtension", WM_CREATE, false},
        {"BeginDragLoop", WM_ENTERSIZEMOVE, false},
        {"RefreshAfterDisplayChange", WM_DISPLAYCHANGE, false},
        {"HandleSysCommand F060 0 hit 0", WM_SYSCOMMAND, false},
    };
    const TestWindow owner(WindowForm{.style = WS_POPUP});
    SetWindowMemory(true, true);
    for (const auto& test : cases) {
        SCOPED_TRACE(test.call);
        const TestWindow window(test.dialog
                                    ? WindowForm{.style = WS_POPUP | WS_CAPTION | WS_SYSMENU, .parent = owner.get()}
                                    : WindowForm{});
        TrackedWindow& record = Known(window.get());
        record.placed = false;
        watched = &record;
        releases = 0;
        int inside = -1;
        recording.during = [&](const std::string& call) {
            if (call != test.call || inside >= 0) return;
            DestroyWindow(window.get());
            Observe(window.get(), WM_DESTROY);
            EXPECT_EQ(0u, RecordCount());
            inside = releases;
        };
        if (test.message == WM_SYSCOMMAND)
            Take(window.get(), test.message, SC_CLOSE);
        else
            Observe(window.get(), test.message, WA_ACTIVE);
        recording.during = nullptr;
        EXPECT_EQ(0, inside) << "released while it was in use, or never reached (-1)";
        EXPECT_EQ(1, releases);
        watched = nullptr;
        threadTable->ForCurrentThread()->Remove(window.get());
    }
}

}  // namespace
}  // namespace halyard::test
