// What desktops can't show: programs that do something in the middle of what is done to their windows, and platforms
// that count differently.
#include "behaviours/application_patches.h"
#include "behaviours/drag_loop.h"
#include "behaviours/geometry.h"
#include "behaviours/placement.h"
#include "common/entry.h"
#include "common/handles.h"
#include "displays/displays.h"
#include "hook/behaviours.h"
#include "hook/tracked_window.h"
#include "support/rect_values.h"
#include "support/store_fixture.h"
#include "support/test_windows.h"

#include <functional>

namespace halyard::test {
namespace {

// A window with its record, as a hook would have made it.
struct KnownWindow : TestWindow {
    explicit KnownWindow(const WindowForm& form = {}) : TestWindow(form), tracked(get()) {}
    explicit KnownWindow(HWND made) : TestWindow(made), tracked(made) {}
    WNDPROC Procedure() const {
        const auto read = IsWindowUnicode(get()) ? GetWindowLongPtrW : GetWindowLongPtrA;
        return reinterpret_cast<WNDPROC>(read(get(), GWLP_WNDPROC));
    }
    bool IsLayered() const { return GetWindowLongA(get(), GWL_EXSTYLE) & WS_EX_LAYERED; }
    TrackedWindow tracked;
};

// The first display has a bar at its left; another one of the same size stands right of it.
struct InProcessTest : StoreTest {
    InProcessTest() {
        profile.program = {};
        RefreshDisplays();
    }
    ~InProcessTest() override { EndDragLoop(); }
};

// The hook calls when the program has had the message.
void Enter(KnownWindow& window) {
    SetCursorPos(250, 110);
    SendMessageA(window.get(), WM_ENTERSIZEMOVE, 0, 0);
    BeginDragLoop(window.tracked);
}
// The cursor is `way` from where the loop began; what became of what the platform proposes.
RECT Proposed(const KnownWindow& window, LONG way, RECT rect) {
    SetCursorPos(250 + way, 110);
    SendMessageA(window.get(), WM_MOVING, 9, reinterpret_cast<LPARAM>(&rect));
    return rect;
}
void Exit(const KnownWindow& window) {
    SendMessageA(window.get(), WM_EXITSIZEMOVE, 0, 0);
}

const WindowForm Dragged = {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE, .place = {100, 100, 400, 300}};

// A loop of this window is watched, docks, follows a size of the platform's and shows the window transparent.
void ExpectDocks(KnownWindow& window) {
    Enter(window);
    EXPECT_EQ((RECT{724, 100, 1024, 300}), Proposed(window, 700, {800, 100, 1100, 300}));
    EXPECT_EQ((RECT{824, 100, 1024, 400}), Proposed(window, 750, {9, 9, 209, 309})) << "as wide as proposed";
    EXPECT_TRUE(window.IsLayered());
    Exit(window);
    EXPECT_FALSE(window.IsLayered());
}

using DragLoopTest = InProcessTest;

TEST_F(DragLoopTest, GivesTheProcedureBackHoweverTheLoopEnds) {
    using Messages = std::vector<UINT>;
    const struct {
        std::function<void(KnownWindow&)> end;
        bool destroysAtExit;  // the program, when the end of the loop comes to it
        Messages seen;        // of these: end of the loop, WM_DESTROY, WM_NCDESTROY
    } cases[] = {
        {Exit, false, {WM_EXITSIZEMOVE}},
        {[](KnownWindow&) { EndDragLoop(); }, false, {}},  // the library leaves
        {[](KnownWindow& window) { DestroyWindow(window.get()); }, false, {WM_DESTROY, WM_NCDESTROY}},
        {Exit, true, {WM_EXITSIZEMOVE, WM_DESTROY, WM_NCDESTROY}},
    };
    settings.SetAutodock(true);
    settings.SetDragTrans(true);
    KnownWindow next(Dragged);
    for (const auto& test : cases)
        for (const bool wide : {false, true}) {
            SCOPED_TRACE(testing::Message() << &test - cases << (wide ? ", wide" : ", narrow"));
            KnownWindow window({.style = Dragged.style, .wide = wide});
            Messages seen;
            window.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
                if (message != WM_EXITSIZEMOVE && message != WM_DESTROY && message != WM_NCDESTROY) return std::nullopt;
                seen.push_back(message);
                if (message != WM_EXITSIZEMOVE) return std::nullopt;
                EXPECT_FALSE(window.IsLayered()) << "the transparency ends ahead of the program";
                if (test.destroysAtExit) DestroyWindow(window.get());
                return 55;
            };
            const WNDPROC own = window.Procedure();
            Enter(window);
            const WNDPROC watched = window.Procedure();
            EXPECT_NE(own, watched);
            Proposed(window, 30, window.Place());
            BeginDragLoop(next.tracked);
            EXPECT_NE(watched, next.Procedure()) << "one loop is watched at a time";
            test.end(window);
            EXPECT_EQ(test.seen, seen);
            EXPECT_TRUE(!IsWindow(window.get()) || own == window.Procedure());
            ExpectDocks(next);
        }
    // A thread that ends takes its windows along without a message.
    EXPECT_TRUE(RunBeside([] {
        TrackedWindow left(CreateWindowA("STATIC", "", WS_CAPTION, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr));
        BeginDragLoop(left);
    }));
    ExpectDocks(next);
}

TEST_F(DragLoopTest, LeavesAWindowAloneThatIsDrawnByUpdateLayeredWindow) {
    settings.SetDragTrans(true);
    KnownWindow window(Dragged);
    SetWindowLongA(window.get(), GWL_EXSTYLE, WS_EX_LAYERED);
    Enter(window);
    Proposed(window, 0, window.Place());
    Exit(window);
    EXPECT_FALSE(GetLayeredWindowAttributes(window.get(), nullptr, nullptr, nullptr));
}

std::function<void(UINT)> seenByDialog;

INT_PTR CALLBACK NotingDialogProc(HWND, UINT message, WPARAM, LPARAM) {
    if (seenByDialog) seenByDialog(message);
    return FALSE;
}

using DialogPlacementTest = InProcessTest;

// The program activates its dialog once more in the middle of it, or destroys it.
TEST_F(DialogPlacementTest, DoesNothingInsideItselfAndOutlivesItsDialog) {
    settings.SetDialogControl(3, 1);
    // After the header: no menu, the platform's class, no title.
    const struct {
        alignas(4) DLGTEMPLATE header;
        WORD menuClassTitle[3];
    } form = {{WS_POPUP | WS_CAPTION | WS_SYSMENU, 0, 0, 20, 20, 120, 80}, {0, 0, 0}};
    KnownWindow dialog(CreateDialogIndirectParamA(nullptr, &form.header, nullptr, NotingDialogProc, 0));
    const WNDPROC own = dialog.Procedure();
    for (const bool destroys : {false, true}) {
        SetWindowPos(dialog.get(), nullptr, 1200, 80, 260, 180, SWP_NOZORDER);
        unsigned nested = 0, reached = 0;
        seenByDialog = [&](UINT message) {
            reached += message == WM_USER;
            if (message != WM_WINDOWPOSCHANGED || nested++) return;
            PlaceDialog(dialog.tracked);
            EXPECT_NE(own, dialog.Procedure()) << "still lent";
            SendMessageA(dialog.get(), WM_USER, 0, 0);
            if (destroys) DestroyWindow(dialog.get());
        };
        PlaceDialog(dialog.tracked);
        EXPECT_EQ(1u, nested);
        EXPECT_EQ(1u, reached) << "its messages still come to it";
        seenByDialog = nullptr;
        EXPECT_TRUE(destroys || (own == dialog.Procedure() && dialog.Place().right < 1024));
    }
    PlaceDialog(dialog.tracked);
}

// The ids of its items, those of a submenu in braces after its own.
std::string IdsOf(HMENU menu) {
    std::string ids;
    for (int index = 0; index < GetMenuItemCount(menu); ++index) {
        const UINT id = GetMenuItemID(menu, index);
        HMENU sub = GetSubMenu(menu, index);
        ids += sub ? "{" + IdsOf(sub) + "}" : std::to_string(id) + " ";
    }
    return ids;
}

using SystemMenuTest = InProcessTest;

// What the program does, and what its menu is like once the extension is put on anew, and once it is off again.
TEST_F(SystemMenuTest, LeavesEachProgramItsMenu) {
    const auto deleteOurs = [](HMENU menu) { DeleteMenu(menu, 64766, MF_BYCOMMAND); };
    const std::string added = "64765 {64767 64768 64769 0 64770 }";
    const KnownWindow plain;
    const std::string standard = IdsOf(GetSystemMenu(plain.get(), FALSE));
    const struct {
        std::function<void(HMENU)> harm;
        std::string extended, off;
    } cases[] = {
        {[](HMENU) {}, standard + added, standard},
        {[](HMENU menu) { AppendMenuA(menu, MF_STRING, 288, "About"); }, standard + added + "288 ", standard + "288 "},
        {deleteOurs, standard + added, standard},
        {[&](HMENU menu) { deleteOurs(menu), DeleteMenu(menu, 64765, MF_BYCOMMAND); }, standard + added, standard},
        {[](HMENU menu) { RemoveMenu(menu, 64766, MF_BYCOMMAND); }, standard + added, standard},
        {[](HMENU menu) {
             for (int left = 20; left--;)
                 DeleteMenu(menu, 0, MF_BYPOSITION);
         },
         added, ""},
    };
    for (const auto& test : cases)
        for (const bool reverts : {false, true}) {
            SCOPED_TRACE(testing::Message() << &test - cases << (reverts ? " and then reverts the menu" : ""));
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
        }
}

using PatchesTest = InProcessTest;

// What a module of the program gets of the platform, through imports of its own.
TEST_F(PatchesTest, ModulesThatAreKnownAreToldOfAllDisplays) {
    const Library layer(LoadLibraryA("ExtensionLayer.dll"));
    const auto rectOf = EntryOf<BOOL (*)(HWND, RECT*)>(layer.get(), "LayerWindowRect");
    const auto parameter = EntryOf<BOOL (*)(UINT, void*)>(layer.get(), "LayerParameter");
    const TestWindow window(Dragged);
    const auto told = [&] {
        std::vector<RECT> rects(4);
        rectOf(GetDesktopWindow(), &rects[0]);
        parameter(SPI_GETWORKAREA, &rects[1]);
        rectOf(window.get(), &rects[2]);
        parameter(SPI_GETWHEELSCROLLLINES, &rects[3]);
        return rects;
    };
    const std::vector<RECT> plain = told(), wide = {WorkBounds(), WorkBounds(), Dragged.place, plain[3]};
    for (const bool known : {false, true}) {
        profile.program.maya = known;
        ApplyApplicationPatches();
        EXPECT_EQ(known ? wide : plain, told());
        RemoveApplicationPatches();
        EXPECT_EQ(plain, told()) << "undone";
    }
}

// Reaches beyond the address at which the modelling programs have the screen's width.
alignas(0x1000) int image[0x80000];

TEST_F(PatchesTest, ProgramsThatHoldTheScreensSizeHoldThatOfAllDisplays) {
    const int width = GetSystemMetrics(SM_CXSCREEN);
    auto* screen = HandleFromBits<int*>(0x59E5A0);
    ASSERT_TRUE(std::begin(image) < screen && screen < std::end(image));
    profile.program.modeler = true;
    const struct {
        int held;
        DWORD protection;
        int width;
    } cases[] = {{width, PAGE_READWRITE, 2 * width}, {width, PAGE_READONLY, width}, {777, PAGE_READWRITE, 777}};
    for (const auto& [held, protection, wanted] : cases) {
        DWORD before = 0;
        screen[0] = held;
        VirtualProtect(screen, sizeof(int), protection, &before);
        ApplyApplicationPatches();
        VirtualProtect(screen, sizeof(int), PAGE_READWRITE, &before);
        EXPECT_EQ(wanted, screen[0]);
    }
}

using PlacementTest = InProcessTest;

TEST_F(PlacementTest, IsInScreenCoordinatesHoweverThePlatformCounts) {
    const LONG bar = WorkBounds().left;
    ASSERT_NE(bar, 0);
    for (const DWORD exStyle : {0L, WS_EX_TOOLWINDOW}) {
        const TestWindow window({.exStyle = exStyle, .place = Dragged.place});
        profile.placesFromWorkArea = true;
        const WINDOWPLACEMENT placement = PlacementOf(window.get());
        EXPECT_EQ(Shifted(Dragged.place, exStyle ? 0 : bar, 0), placement.rcNormalPosition);
        SetPlacement(window.get(), placement);
        EXPECT_EQ(Dragged.place, window.Place());
        profile.placesFromWorkArea = false;
        EXPECT_EQ(Dragged.place, PlacementOf(window.get()).rcNormalPosition);
    }
}

}  // namespace
}  // namespace halyard::test
