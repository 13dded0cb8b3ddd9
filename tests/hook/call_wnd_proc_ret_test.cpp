// Sent messages after the program has answered them, and the records that they leave.
#include "hook/hook_fixture.h"
#include "hook/interest_table.h"

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

TEST_F(CallWndProcRetTest, LooksAtElevenMessages) {
    // Those that leave a record or, at a window's end, a call.
    std::vector<UINT> looked;
    SetWindowMemory(true, true);
    const TestWindow window;
    for (UINT message = 0; message < 0x10000; message += message < 1024 ? 1 : 61) {
        Observe(window.get(), message);
        const bool called = !recording.Take().empty();
        if (RecordCount() > 0 || called) looked.push_back(message);
        threadTable->ForCurrentThread()->Remove(window.get());
    }
    EXPECT_EQ((std::vector<UINT>{1, 2, 6, 26, 71, 125, 126, 132, 133, 279, 561}), looked);
}

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

// A letter for each step: o the menu opens, p/q the item or another one is pointed at, x another window's item is, e
// the menu ends, u/v the button comes up over the view or another window.
TEST_F(DesktopMenuTest, AsksForTheDialogWhenTheButtonComesUpOnItsItem) {
    constexpr std::pair<const char*, bool> Cases[] = {
        {"ou", false},
        {"opu", true},
        {"opuu", false},
        {"opqu", false},
        {"opxu", true},
        {"opou", false},
        {"opv", true},  // some platforms give the mouse to a window of the menu's
                        // own
        {"opeqv", false},
        {"opequ", true},
    };
    for (const auto& [steps, asked] : Cases) {
        Take(view.get(), WM_LBUTTONUP);
        Observe(view.get(), WM_EXITMENULOOP);
        recording.Take();
        for (const char* step = steps; *step; ++step) {
            if (!step[1]) recording.Take();
            switch (*step) {
            case 'o': Observe(view.get(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0); break;
            case 'p': Observe(view.get(), WM_MENUSELECT, MAKEWPARAM(64771, MF_MOUSESELECT)); break;
            case 'q': Observe(view.get(), WM_MENUSELECT, MAKEWPARAM(64772, MF_MOUSESELECT)); break;
            case 'x': Observe(other.get(), WM_MENUSELECT, MAKEWPARAM(64772, MF_MOUSESELECT)); break;
            case 'e': Observe(view.get(), WM_EXITMENULOOP); break;
            case 'u': Take(view.get(), WM_LBUTTONUP); break;
            case 'v': Take(other.get(), WM_LBUTTONUP); break;
            }
        }
        EXPECT_EQ(asked ? Calls{"send 1188 0"} : Calls{}, recording.Take()) << steps;
    }
    EXPECT_EQ(2, GetMenuItemCount(menu)) << "added once";
    profile.desktopViewWindow = nullptr;
    const HMENU without = CreatePopupMenu();
    Observe(view.get(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(without), 0);
    EXPECT_EQ(0, GetMenuItemCount(without));
    DestroyMenu(without);
}

// What a window of the drawing program sees when its frame is to be painted.
struct Paint {
    DWORD style;
    RECT box;
};

TEST_F(CallWndProcRetTest, PaintsASpanningFrameOnceMoreAsMaximised) {
    for (const bool wide : {false, true}) {
        profile.program.acad = true;
        TestWindow window{WindowForm{.place = {100, 120, 500, 400}, .wide = wide}};
        TrackedWindow& tracked = Known(window.get());
        std::vector<Paint> paints;
        window.handler = [&](UINT message, WPARAM region, LPARAM) -> std::optional<LRESULT> {
            if (message != WM_NCPAINT) return std::nullopt;
            paints.push_back({window.Style(), {}});
            GetRgnBox(reinterpret_cast<HRGN>(region), &paints.back().box);
            // The program's own painting goes through the hook once more, and it may drop the bit by then.
            const auto shown = static_cast<LONG>(window.Style());
            if (paints.size() == 1) SetWindowLongA(window.get(), GWL_STYLE, shown & ~WS_MAXIMIZE);
            if (paints.size() < 5) Observe(window.get(), WM_NCPAINT, region);
            SetWindowLongA(window.get(), GWL_STYLE, shown);
            return 0;
        };
        Observe(window.get(), WM_NCPAINT, 1);
        EXPECT_EQ(0u, paints.size()) << "not spanning";
        tracked.maximisedAcross = true;
        const DWORD style = window.Style();
        Observe(window.get(), WM_NCPAINT, 1);
        ASSERT_EQ(1u, paints.size());
        EXPECT_EQ(style | WS_MAXIMIZE, paints[0].style);
        EXPECT_EQ(style, window.Style());
        // The caption's buttons, when the pointer is tested.
        Observe(window.get(), WM_NCHITTEST, 0, 0, HTMAXBUTTON);
        ASSERT_EQ(2u, paints.size());
        EXPECT_EQ(HTMAXBUTTON, tracked.lastHitTest);
        const LONG top = 120 + GetSystemMetrics(SM_CYFRAME);
        const LONG right = 500 - GetSystemMetrics(SM_CXFRAME) - GetSystemMetrics(SM_CXSIZE);
        const RECT buttons = {right - GetSystemMetrics(SM_CXSIZE) - 8, top, right, top + GetSystemMetrics(SM_CYSIZE)};
        EXPECT_TRUE(EqualRect(&buttons, &paints[1].box));
        EXPECT_EQ(style | WS_MAXIMIZE, paints[1].style);
        EXPECT_EQ(style, window.Style());

        SetWindowLongA(window.get(), GWL_STYLE, static_cast<LONG>(style | WS_MAXIMIZE));
        Observe(window.get(), WM_NCPAINT, 1);
        EXPECT_EQ(2u, paints.size()) << "maximised in truth";
        SetWindowLongA(window.get(), GWL_STYLE, static_cast<LONG>(style));
        profile.program.acad = false;
        Observe(window.get(), WM_NCPAINT, 1);
        EXPECT_EQ(2u, paints.size()) << "another program";
        EXPECT_EQ(Calls{}, recording.Take());
    }
}

class RecordsTest : public HookTest {};

TEST_F(RecordsTest, BelongToTheDesktopOfTheFirstSight) {
    const TestWindow window;
    for (const auto& [inServer, expected] : {std::pair(false, DesktopId(12)), {true, AllDesktopsId}}) {
        profile.isServerProcess = inServer;
        SetCurrentDesktopId(12);
        TrackedWindowOf(window.get());
        SetCurrentDesktopId(40);
        EXPECT_EQ(expected, TrackedWindowOf(window.get())->desktopId) << "server " << inServer;
        threadTable->ForCurrentThread()->Remove(window.get());
    }
}

TEST_F(RecordsTest, AreReportedToTheServer) {
    const TestWindow owner(WindowForm{.style = WS_POPUP});
    const TestWindow managed(WindowForm{.style = WS_POPUP | WS_OVERLAPPEDWINDOW, .parent = owner.get()});
    Known(owner.get()).NotifyServer(true);
    EXPECT_EQ(Calls{}, recording.Take()) << "not managed";
    TrackedWindow& record = Known(managed.get());
    record.desktopId = AllDesktopsId;
    record.NotifyServer(true);
    record.NotifyServer(false);
    record.SendDesktopChoice();
    profile.program.qlplay = true;
    record.SendDesktopChoice();
    EXPECT_EQ((Calls{"send 1186 -2", "send 1186 -2 other", "post 1186 -2", "post 1187 -2"}), recording.Take());
}

TEST_F(RecordsTest, TakeLeaveInTeardownOfAllThreads) {
    const TestWindow first;
    const TestWindow second;
    const TestWindow bare(WindowForm{.style = WS_POPUP});
    const bool inOrder = HandleBits(first.get()) < HandleBits(second.get());
    Known(bare.get());
    Known(first.get());
    Known(second.get());
    recording.subject = inOrder ? first.get() : second.get();
    table.DestroyAll();
    EXPECT_EQ((Calls{"RemoveMenuExtension", "post 1187 0", "RemoveMenuExtension other", "post 1187 0 other"}),
              recording.Take());
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
