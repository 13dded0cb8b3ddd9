// What desktops can't show: programs that do something in the middle of what is done to their windows.
#include "behaviours/drag_loop.h"
#include "behaviours/geometry.h"
#include "behaviours/inprocess_fixture.h"
#include "behaviours/placement.h"
#include "hook/behaviours.h"

#include <functional>

namespace halyard::test {
namespace {

// Two displays of 1024 by 768 stand side by side, whatever stands beyond them.
class DragLoopTest : public InProcessTest {
protected:
    DragLoopTest() {
        settings.SetAutodock(true);
        settings.SetDragTrans(true);
        settings.SetDragTransPerCent(75);
    }
    ~DragLoopTest() override { EndDragLoop(); }

    // The hook calls when the program has had the message.
    static void Enter(KnownWindow& window) {
        SetCursorPos(250, 110);
        SendMessageA(window.get(), WM_ENTERSIZEMOVE, 0, 0);
        BeginDragLoop(window.tracked);
    }
    // The cursor is `way` from where the loop began; what became of what the platform proposes.
    static RECT Proposed(const KnownWindow& window, LONG way, RECT rect) {
        SetCursorPos(250 + way, 110);
        SendMessageA(window.get(), WM_MOVING, 9, reinterpret_cast<LPARAM>(&rect));
        return rect;
    }
    static void Exit(const KnownWindow& window) { SendMessageA(window.get(), WM_EXITSIZEMOVE, 0, 0); }
    static DWORD LayerOf(const TestWindow& window, BYTE& alpha, COLORREF& key) {
        DWORD flags = 0;
        return GetLayeredWindowAttributes(window.get(), &key, &alpha, &flags) ? flags : 0;
    }
    static bool IsLayered(const TestWindow& window) {
        return GetWindowLongA(window.get(), GWL_EXSTYLE) & WS_EX_LAYERED;
    }

    // A loop of this window is watched, docks, follows a size of the platform's and shows the window transparent.
    static void ExpectDocks(KnownWindow& window) {
        Enter(window);
        EXPECT_EQ((RECT{724, 100, 1024, 300}), Proposed(window, 700, {800, 100, 1100, 300}));
        EXPECT_EQ((RECT{824, 100, 1024, 400}), Proposed(window, 750, {9, 9, 209, 309})) << "as wide as proposed";
        EXPECT_TRUE(IsLayered(window));
        Exit(window);
        EXPECT_EQ(nullptr, dragLoop.window);
        EXPECT_FALSE(IsLayered(window));
    }
    const WindowForm form = {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE, .place = {100, 100, 400, 300}};
};

TEST_F(DragLoopTest, GivesTheProcedureBackHoweverTheLoopEnds) {
    using Messages = std::vector<UINT>;
    const struct {
        const char* what;
        std::function<void(KnownWindow&)> end;
        bool destroysAtExit;  // the program, when the end of the loop comes to it
        Messages seen;        // of these: end of the loop, WM_DESTROY, WM_NCDESTROY
    } cases[] = {
        {"end of the loop", Exit, false, {WM_EXITSIZEMOVE}},
        {"the library leaves", [](KnownWindow&) { EndDragLoop(); }, false, {}},
        {"the window goes",
         [](KnownWindow& window) { DestroyWindow(window.get()); },
         false,
         {WM_DESTROY, WM_NCDESTROY}},
        {"it goes at the end of the loop", Exit, true, {WM_EXITSIZEMOVE, WM_DESTROY, WM_NCDESTROY}},
    };
    for (const auto& test : cases)
        for (const bool wide : {false, true}) {
            SCOPED_TRACE(testing::Message() << test.what << (wide ? ", wide" : ", narrow"));
            WindowForm made = form;
            made.wide = wide;
            KnownWindow window(made);
            Messages seen;
            window.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
                if (message != WM_EXITSIZEMOVE && message != WM_DESTROY && message != WM_NCDESTROY) return std::nullopt;
                seen.push_back(message);
                if (message != WM_EXITSIZEMOVE) return std::nullopt;
                EXPECT_FALSE(IsLayered(window)) << "the transparency ends ahead of the program";
                if (test.destroysAtExit) DestroyWindow(window.get());
                return 55;
            };
            const WNDPROC own = window.Procedure();
            Enter(window);
            const WNDPROC watched = window.Procedure();
            EXPECT_NE(own, watched);
            Proposed(window, 30, window.Place());
            // One loop is watched at a time.
            KnownWindow next(form);
            BeginDragLoop(next.tracked);
            EXPECT_NE(watched, next.Procedure());
            test.end(window);
            EXPECT_EQ(test.seen, seen);
            EXPECT_TRUE(!IsWindow(window.get()) || own == window.Procedure());
            ExpectDocks(next);
        }
    // A thread that ends takes its windows along without a message.
    EXPECT_TRUE(RunBeside([] {
        TrackedWindow left(
            CreateWindowExA(0, "STATIC", "", WS_CAPTION, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr));
        BeginDragLoop(left);
    }));
    KnownWindow next(form);
    ExpectDocks(next);
}

TEST_F(DragLoopTest, KeepsHowAProgramDrawsALayeredWindow) {
    COLORREF key = 0;
    BYTE alpha = 0;
    for (const DWORD drawn : {0, LWA_COLORKEY, LWA_ALPHA}) {  // 0: by UpdateLayeredWindow
        KnownWindow window(form);
        SetWindowLongA(window.get(), GWL_EXSTYLE, WS_EX_LAYERED);
        if (drawn) SetLayeredWindowAttributes(window.get(), RGB(255, 0, 255), 100, drawn);
        Enter(window);
        Proposed(window, 0, window.Place());
        EXPECT_EQ(drawn != 0, LayerOf(window, alpha, key) != 0 && alpha == 191);
        Exit(window);
        EXPECT_EQ(drawn, LayerOf(window, alpha, key) & (drawn ? drawn : ~0u));
        EXPECT_TRUE(drawn == 0 || alpha == (drawn == LWA_ALPHA ? 100 : 255)) << int{alpha};
        EXPECT_TRUE(drawn != LWA_COLORKEY || key == RGB(255, 0, 255));
        EXPECT_TRUE(IsLayered(window));
    }
}

// Sees what the dialog's own procedure gets.
std::function<void(HWND, UINT)> seenByDialog;

INT_PTR CALLBACK NotingDialogProc(HWND dialog, UINT message, WPARAM, LPARAM) {
    if (seenByDialog) seenByDialog(dialog, message);
    return FALSE;
}

class DialogPlacementTest : public InProcessTest {};

// The program activates its dialog once more in the middle of it, or destroys it.
TEST_F(DialogPlacementTest, DoesNothingInsideItselfAndOutlivesItsDialog) {
    settings.SetDialogControl(3, 1);
    KnownWindow dialog(MakeDialog(WS_POPUP | WS_CAPTION | WS_SYSMENU, nullptr));
    SetWindowLongPtrA(dialog.get(), DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(NotingDialogProc));
    SetWindowPos(dialog.get(), nullptr, 1200, 80, 260, 180, SWP_NOZORDER);
    const RECT place = dialog.Place();
    const WNDPROC own = dialog.Procedure();
    unsigned nested = 0;
    unsigned reached = 0;
    seenByDialog = [&](HWND, UINT message) {
        reached += message == WM_USER;
        if (message != WM_WINDOWPOSCHANGED || nested++) return;
        PlaceDialog(dialog.tracked);
        EXPECT_NE(own, dialog.Procedure()) << "still lent";
        SendMessageA(dialog.get(), WM_USER, 0, 0);
    };
    PlaceDialog(dialog.tracked);
    EXPECT_EQ(1u, nested);
    EXPECT_EQ(1u, reached) << "its messages still come to it";
    EXPECT_EQ(own, dialog.Procedure());
    EXPECT_LT(dialog.Place().right, 1024) << "on the first display";

    seenByDialog = [&](HWND window, UINT message) {
        if (message == WM_WINDOWPOSCHANGED) DestroyWindow(window);
    };
    SetWindowPos(dialog.get(), nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOSENDCHANGING);
    PlaceDialog(dialog.tracked);
    EXPECT_FALSE(IsWindow(dialog.get()));
    PlaceDialog(dialog.tracked);
    seenByDialog = nullptr;
}

// The ids of its items, those of a submenu in braces after its own.
std::string IdsOf(HMENU menu) {
    std::string ids;
    for (int index = 0; index < GetMenuItemCount(menu); ++index) {
        MENUITEMINFOA info = {};
        info.cbSize = sizeof(info);
        info.fMask = MIIM_ID | MIIM_SUBMENU;
        GetMenuItemInfoA(menu, static_cast<UINT>(index), TRUE, &info);
        ids += std::to_string(info.wID) + (info.hSubMenu ? "{" + IdsOf(info.hSubMenu) + "}" : " ");
    }
    return ids;
}

class SystemMenuTest : public InProcessTest {};

// What the program does, and what its menu is like once the extension is put on anew, and once it is off again.
TEST_F(SystemMenuTest, LeavesEachProgramItsMenu) {
    const auto deleteOurs = [](HMENU menu) { DeleteMenu(menu, 64766, MF_BYCOMMAND); };
    const std::string added = "64765 64766{64767 64768 64769 0 64770 }";
    const KnownWindow plain;
    const std::string standard = IdsOf(GetSystemMenu(plain.get(), FALSE));
    const struct {
        const char* what;
        std::function<void(HMENU)> harm;
        std::string extended, off;
    } cases[] = {
        {"nothing", [](HMENU) {}, standard + added, standard},
        {"adds an item after ours", [](HMENU menu) { AppendMenuA(menu, MF_STRING, 288, "About"); },
         standard + added + "288 ", standard + "288 "},
        {"deletes our item", deleteOurs, standard + added, standard},
        {"deletes our item and separator", [&](HMENU menu) { deleteOurs(menu), DeleteMenu(menu, 64765, MF_BYCOMMAND); },
         standard + added, standard},
        {"removes our item and keeps the submenu", [](HMENU menu) { RemoveMenu(menu, 64766, MF_BYCOMMAND); },
         standard + added, standard},
        {"deletes all",
         [](HMENU menu) {
             while (DeleteMenu(menu, 0, MF_BYPOSITION)) {
             }
         },
         added, ""},
    };
    for (const auto& test : cases)
        for (const bool reverts : {false, true}) {
            SCOPED_TRACE(testing::Message() << test.what << (reverts ? " and then reverts the menu" : ""));
            KnownWindow victim;
            AddMenuExtension(victim.tracked);
            test.harm(GetSystemMenu(victim.get(), FALSE));
            if (reverts) GetSystemMenu(victim.get(), TRUE);
            UpdateMenuExtension(victim.tracked, victim.tracked.submenu, 0);
            AddMenuExtension(victim.tracked);
            DeleteMenu(victim.tracked.submenu, 64776, MF_BYCOMMAND);
            EXPECT_EQ(reverts ? standard + added : test.extended, IdsOf(GetSystemMenu(victim.get(), FALSE)));
            RemoveMenuExtension(victim.tracked);
            EXPECT_EQ(reverts ? standard : test.off, IdsOf(GetSystemMenu(victim.get(), FALSE)));
            EXPECT_EQ(nullptr, victim.tracked.submenu);
            TrackedWindow orphan = victim.tracked;
            DestroyWindow(victim.get());
            AddMenuExtension(orphan);
            EXPECT_EQ(nullptr, orphan.submenu);
        }
}

class PlacementTest : public InProcessTest {};

TEST_F(PlacementTest, IsInScreenCoordinatesHoweverThePlatformCounts) {
    const RECT bounds = WorkBounds();
    ASSERT_NE(bounds.left, 0) << "the first display has a bar at its left";
    const RECT place = {100, 100, 400, 300};
    for (const DWORD exStyle : {0L, WS_EX_TOOLWINDOW}) {
        const TestWindow window({.exStyle = exStyle, .place = place});
        profile.placesFromWorkArea = false;
        EXPECT_EQ(place, PlacementOf(window.get()).rcNormalPosition);
        profile.placesFromWorkArea = true;
        const WINDOWPLACEMENT placement = PlacementOf(window.get());
        EXPECT_EQ(Shifted(place, exStyle ? 0 : bounds.left, 0), placement.rcNormalPosition);
        SetPlacement(window.get(), placement);
        EXPECT_EQ(place, window.Place());
    }
}

class SpanningTest : public InProcessTest {};

TEST_F(SpanningTest, ComesBackFromEachState) {
    settings.SetCtrlMax(2);
    const RECT place = {200, 150, 700, 500};
    for (const int show : {SW_SHOWNORMAL, SW_SHOWMAXIMIZED, SW_SHOWMINIMIZED}) {
        SCOPED_TRACE(show);
        KnownWindow window({.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE, .place = place});
        ShowWindow(window.get(), show);
        EXPECT_TRUE(HandleSysCommand(window.tracked, SC_MAXIMIZE, 0));
        EXPECT_EQ(SpanningRect(WorkBounds()), window.Place());
        ShowWindow(window.get(), SW_MINIMIZE);
        RefreshAfterDisplayChange(window.tracked);
        EXPECT_TRUE(IsIconic(window.get())) << "displays that change don't bring it up";
        EXPECT_TRUE(HandleSysCommand(window.tracked, SC_RESTORE, 0));
        EXPECT_EQ(SpanningRect(WorkBounds()), window.Place()) << "it spans again";
        EXPECT_FALSE(HandleSysCommand(window.tracked, SC_RESTORE | 2, 0));
        SendMessageA(window.get(), WM_SYSCOMMAND, SC_RESTORE, 0);
        EXPECT_EQ(place, window.Place());
        KnownWindow child({.style = WS_CHILD | WS_MAXIMIZEBOX, .parent = window.get()});
        EXPECT_FALSE(HandleSysCommand(child.tracked, SC_MAXIMIZE, 0)) << "it maximises within its parent";
    }
}

}  // namespace
}  // namespace halyard::test
