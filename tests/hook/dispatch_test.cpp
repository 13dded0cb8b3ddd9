// What is due for a window at each message of its life.
#include "hook/hook_fixture.h"
#include "hook/window_events.h"

namespace halyard::test {
namespace {

// What the window is, how it stands before the message, and how it stands after it.
enum State : unsigned {
    Managed = 0,
    Dialog = 1,  // and not managed
    Both = 2,
    Neither = 4,
    Child = 8,
    Offered = 0x10,  // window memory
    ForApp = 0x20,   // window memory of this program
    Memory = Offered | ForApp,
    Unplaced = 0x40,  // before or after
    Unclassified = 0x80,
    Corelpp = 0x100,
    Qlplay = 0x200,
    HitCleared = 0x400,  // after
    Dropped = 0x800,
};

struct Event {
    UINT message;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    LRESULT result = 0;
};

struct Case {
    const char* what;
    Event event;
    unsigned before = Managed;
    Calls calls = {};
    unsigned after = 0;
};

const STYLESTRUCT toChild = {WS_OVERLAPPEDWINDOW, WS_OVERLAPPEDWINDOW | WS_CHILD};
const STYLESTRUCT fromChild = {WS_CHILD, WS_OVERLAPPEDWINDOW};

const WINDOWPOS shown = {nullptr, nullptr, 0, 0, 0, 0, SWP_SHOWWINDOW};

template <typename Structure>
LPARAM At(const Structure& structure) {
    return reinterpret_cast<LPARAM>(&structure);
}

constexpr WPARAM Style = static_cast<WPARAM>(GWL_STYLE);
constexpr WPARAM ExStyle = static_cast<WPARAM>(GWL_EXSTYLE);
constexpr char Add[] = "AddMenuExtension";
constexpr char Remove[] = "RemoveMenuExtension";
constexpr char Place[] = "PlaceDialog unplaced";
constexpr char Restore[] = "RestoreWindowMemory";
constexpr char Save[] = "SaveWindowMemory";
constexpr char Refresh[] = "RefreshAfterDisplayChange";
constexpr char Attach[] = "post 1186 5";
constexpr char Detach[] = "post 1187 5";

const Case Cases[] = {
    {"creation", {WM_CREATE}, Unclassified, {Add, Attach}, Unplaced},
    {"creation classifies a known window again", {WM_CREATE}, Managed, {Add, Attach}, Unplaced},
    {"creation of a dialog", {WM_CREATE}, Dialog, {Remove}, Unplaced},

    {"end with memory", {WM_DESTROY}, Memory, {Save, Detach}, Dropped},
    {"end with memory, unclassified", {WM_DESTROY}, Memory | Unclassified, {Add, Save, Detach}, Dropped},
    {"end with memory only offered", {WM_DESTROY}, Offered, {}, Dropped},
    {"end of an unmanaged window", {WM_DESTROY}, Dialog | Memory, {}, Dropped},

    {"activation of a placed dialog", {WM_ACTIVATE, WA_ACTIVE}, Dialog},
    {"first activation of a dialog", {WM_ACTIVATE, WA_ACTIVE}, Dialog | Unplaced, {Place}},
    {"loss of activation", {WM_ACTIVATE, WA_INACTIVE}, Both | Memory | Unplaced, {}, Unplaced},
    {"first activation, memory only offered", {WM_ACTIVATE, WA_ACTIVE}, Offered | Unplaced, {}, HitCleared},
    {"first activation with memory", {WM_ACTIVATE, WA_ACTIVE}, Memory | Unplaced, {Restore}, HitCleared},
    {"first activation of both", {WM_ACTIVATE, WA_ACTIVE}, Both | Memory | Unplaced, {Place, Restore}, HitCleared},
    {"dialog in corelpp", {WM_ACTIVATE, WA_ACTIVE}, Dialog | Corelpp | Unplaced, {}, Unplaced},
    {"both in corelpp", {WM_ACTIVATE, WA_ACTIVE}, Both | Corelpp | Memory | Unplaced, {Restore}, HitCleared},

    {"new work area", {WM_SETTINGCHANGE, SPI_SETWORKAREA}, Managed, {Refresh}},
    {"other setting", {WM_SETTINGCHANGE, SPI_GETWORKAREA}},
    {"new displays", {WM_DISPLAYCHANGE}, Managed, {Refresh}},

    {"move of a window", {WM_WINDOWPOSCHANGED}, Memory | Unplaced, {"post 1189 1"}, Unplaced},
    {"show of a window",
     {WM_WINDOWPOSCHANGED, 0, At(shown)},
     Memory | Unplaced,
     {"post 1189 1", "post 1201 1", Restore}},
    {"show of a dialog",
     {WM_WINDOWPOSCHANGED, 0, At(shown)},
     Both | Memory | Unplaced,
     {"post 1189 1", "post 1201 1"},
     Unplaced},

    {"window turned child", {WM_STYLECHANGED, Style, At(toChild)}, Managed, {Add}, Dropped},
    {"child turned window", {WM_STYLECHANGED, Style, At(fromChild)}, Child, {Remove}},
    {"extended style with a child's bit", {WM_STYLECHANGED, ExStyle, At(toChild)}, Managed, {Add}},

    {"hit test on the caption", {WM_NCHITTEST, 0, 0, HTCAPTION}},

    {"frame of a dialog", {WM_NCPAINT}, Dialog | Unplaced, {}, Unplaced},
    {"first frame of a dialog in corelpp", {WM_NCPAINT}, Dialog | Corelpp | Unplaced, {Place}},

    {"system menu", {WM_INITMENUPOPUP, 77, MAKELPARAM(3, 1)}, Managed, {"UpdateMenuExtension 77 10003"}},
    {"other menu", {WM_INITMENUPOPUP, 77, MAKELPARAM(3, 0)}},
    {"other menu in qlplay2", {WM_INITMENUPOPUP, 77, MAKELPARAM(3, 0)}, Qlplay, {"UpdateMenuExtension 77 3"}},

    {"move loop", {WM_ENTERSIZEMOVE}, Managed, {"BeginDragLoop"}},
    {"move loop of a child", {WM_ENTERSIZEMOVE}, Child, {}, Dropped},
};

class DispatchTest : public HookTest {
protected:
    WindowForm FormOf(unsigned before) const {
        if (before & Dialog) return {.style = WS_POPUP | WS_CAPTION | WS_SYSMENU, .parent = owner.get()};
        if (before & Both) return {.className = "#32770", .style = WS_POPUP | WS_CAPTION | WS_MINIMIZEBOX};
        if (before & Neither) return {.style = WS_POPUP};
        if (before & Child) return {.style = WS_CHILD | WS_CAPTION, .parent = owner.get()};
        return {};
    }

    void Run(const Case& test) {
        const TestWindow window(FormOf(test.before));
        recording.subject = window.get();
        SetWindowMemory((test.before & Offered) != 0, (test.before & ForApp) != 0);
        profile.program.corelpp = (test.before & Corelpp) != 0;
        profile.program.qlplay = (test.before & Qlplay) != 0;
        SetCurrentDesktopId(5);
        TrackedWindow tracked(window.get());
        if (!(test.before & Unclassified)) tracked.Classify();
        tracked.placed = !(test.before & Unplaced);
        tracked.lastHitTest = 7;
        recording.Take();
        const Event& event = test.event;
        const bool keeps =
            DispatchWindowEvent(tracked, {event.result, event.lParam, event.wParam, event.message, window.get()});
        EXPECT_EQ(!(test.after & Dropped), keeps);
        EXPECT_EQ(test.calls, recording.Take());
        EXPECT_EQ(!(test.after & Unplaced), tracked.placed);
        const int unconsumed = event.message == WM_NCHITTEST ? static_cast<int>(event.result) : 7;
        EXPECT_EQ(test.after & HitCleared ? 0 : unconsumed, tracked.lastHitTest);
    }

    TestWindow owner{WindowForm{.style = WS_POPUP | WS_CLIPCHILDREN}};
};

TEST_F(DispatchTest, DoesWhatIsDueAtEachMessage) {
    for (const Case& test : Cases) {
        SCOPED_TRACE(test.what);
        Run(test);
    }
}

TEST_F(DispatchTest, UpdatesTheExtensionWhereItIsNotMarkedAsPartOfTheSystemMenu) {
    const TestWindow window;
    TrackedWindow& tracked = Known(window.get());
    HMENU desktops = CreatePopupMenu();
    tracked.submenu = CreatePopupMenu();
    AppendMenuA(tracked.submenu, MF_POPUP, reinterpret_cast<UINT_PTR>(desktops), "Desktops");
    const std::pair<HMENU, bool> steps[] = {
        {desktops, false}, {tracked.submenu, true}, {desktops, true}, {nullptr, false}, {desktops, false}};
    for (const auto& [menu, open] : steps) {
        Observe(window.get(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu));
        EXPECT_EQ(open ? 1u : 0u, recording.Take().size());
        EXPECT_EQ(open, tracked.extensionOpen);
    }
    DestroyMenu(std::exchange(tracked.submenu, nullptr));
}

struct PopupCase {
    const char* what;
    RECT popup;
    POINT expected;
};

// The frame is 300, 200, 700, 600.
constexpr PopupCase PopupCases[] = {
    {"inside", {350, 250, 450, 350}, {350, 250}},
    {"touching all edges", {300, 200, 700, 600}, {300, 200}},
    {"right of it by one", {601, 250, 701, 350}, {600, 250}},
    {"below it by one", {350, 501, 450, 601}, {350, 500}},
    {"too wide", {310, 250, 810, 350}, {200, 250}},
    {"too tall", {350, 210, 450, 650}, {350, 160}},
    {"negative", {-500, -400, -400, -300}, {300, 200}},
};

TEST_F(DispatchTest, KeepsMenusOfTheModellerInsideItsFrame) {
    const TestClass managerClass("WMgrBasic");
    const TestClass popupClasses[] = {TestClass("PopupMenu"), TestClass("OtherMenu")};
    const auto activate = [](const char* name, const RECT& place) {
        const TestWindow popup({.className = name, .style = WS_POPUP, .place = place});
        Known(popup.get()).placed = false;
        Observe(popup.get(), WM_ACTIVATE, WA_ACTIVE);
        threadTable->ForCurrentThread()->Remove(popup.get());
        return popup.Place();
    };
    const auto stays = [&](const char* name) {
        const RECT place = {10, 20, 110, 120};
        const RECT seen = activate(name, place);
        return EqualRect(&place, &seen) != FALSE;
    };
    profile.program.modeler = true;
    EXPECT_TRUE(stays("PopupMenu")) << "without a frame";
    const TestWindow manager({.className = "WMgrBasic", .style = WS_POPUP, .place = {300, 200, 700, 600}});
    EXPECT_TRUE(stays("OtherMenu"));
    for (const PopupCase& test : PopupCases) {
        const RECT seen = activate("POPUPmenu", test.popup);
        EXPECT_EQ(test.expected.x, seen.left) << test.what;
        EXPECT_EQ(test.expected.y, seen.top) << test.what;
        EXPECT_EQ(test.popup.right - test.popup.left, seen.right - seen.left) << test.what;
        EXPECT_EQ(test.popup.bottom - test.popup.top, seen.bottom - seen.top) << test.what;
    }
    profile.program.modeler = false;
    EXPECT_TRUE(stays("PopupMenu")) << "in another program";
}

}  // namespace
}  // namespace halyard::test
