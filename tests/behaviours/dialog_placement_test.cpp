// Real dialog boxes in the place that the user chose.
#include "behaviour_fixture.h"
#include "hook/behaviours.h"

#include <algorithm>
#include <functional>
#include <thread>

namespace halyard::test {
namespace {

constexpr POINT CornerOf(const RECT& rect) {
    return {rect.left, rect.top};
}

constexpr DWORD DialogStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;

// Sees what the dialog's own procedure gets. One at a time per thread.
thread_local std::function<void(HWND, UINT)> seen;

INT_PTR CALLBACK NotingDialogProc(HWND dialog, UINT message, WPARAM, LPARAM) {
    if (seen) seen(dialog, message);
    return FALSE;
}

struct KnownDialog : KnownWindow {
    explicit KnownDialog(HWND owner, const RECT& place) : KnownWindow(MakeDialog(DialogStyle, owner)) {
        SetWindowPos(get(), nullptr, place.left, place.top, WidthOf(place), HeightOf(place), SWP_NOZORDER);
        SetWindowLongPtrA(get(), DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(NotingDialogProc));
    }
    ~KnownDialog() { seen = nullptr; }
};

class DialogPlacementTest : public BehaviourTest {
protected:
    const RealDisplay& first = displays.front();
    const RealDisplay& last = displays.back();
    // On the last display; its application is on the first.
    const RECT place = Shifted({0, 0, 260, 180}, last.workArea.left + 40, last.workArea.top + 30);
    const RECT ownerPlace = Shifted({0, 0, 600, 500}, first.workArea.left + 20, first.workArea.top + 15);
};

TEST_F(DialogPlacementTest, PutsDialogsWhereTheUserWants) {
    const TestWindow shown(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE, .place = ownerPlace});
    const TestWindow hidden(WindowForm{.place = ownerPlace});
    const auto count = static_cast<DWORD>(displays.size());
    struct Case {
        const char* what;
        DWORD mode;
        DWORD display;
        HWND owner;
        POINT cursor;
        const RECT* target;  // null: it stays
    };
    const POINT onFirst = CentreOf(first.whole);
    const POINT onLast = CentreOf(last.whole);
    const Case cases[] = {
        {"default", 0, 1, shown.get(), onFirst, nullptr},
        {"application window", 1, 1, shown.get(), onFirst, &ownerPlace},
        {"application window that is hidden", 1, 1, hidden.get(), onFirst, &last.workArea},
        {"no application window", 1, 1, nullptr, onFirst, &last.workArea},
        {"the dialog's own display", 2, 1, shown.get(), onFirst, &last.workArea},
        {"display 1", 3, 1, shown.get(), onLast, &first.workArea},
        {"last display", 3, count, shown.get(), onFirst, &last.workArea},
        {"display behind the last", 3, count + 1, shown.get(), onFirst, nullptr},
        {"display 0", 3, 0, shown.get(), onFirst, nullptr},
        {"cursor on the first", 4, 2, shown.get(), onFirst, &first.workArea},
        {"cursor on the last", 4, 1, shown.get(), onLast, &last.workArea},
        {"unknown mode", 5, 1, shown.get(), onFirst, nullptr},
        {"absurd mode", 0xFFFFFFFF, 1, shown.get(), onFirst, nullptr},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.what);
        settings.SetDialogControl(test.mode, test.display);
        SetCursorPos(test.cursor.x, test.cursor.y);
        KnownDialog dialog(test.owner, place);
        const WNDPROC own = dialog.Procedure();
        const POINT corner = test.target ? CentredOn(place, *test.target, bounds) : CornerOf(place);
        // Nothing of the first time is in the way of a second one.
        for (int time = 1; time <= 2; ++time) {
            SetWindowPos(dialog.get(), nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
            PlaceDialog(dialog.tracked);
            EXPECT_EQ(Shifted(place, corner.x - place.left, corner.y - place.top), dialog.Place()) << time;
            EXPECT_EQ(own, dialog.Procedure());
            EXPECT_FALSE(IsWindowUnicode(dialog.get()));
        }
    }
}

TEST_F(DialogPlacementTest, KeepsALargeDialogAtTheCornerOfItsApplication) {
    const TestWindow owner(
        WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                   .place = Shifted({0, 0, 200, 150}, first.workArea.left + 300, first.workArea.top + 200)});
    settings.SetDialogControl(1, 1);
    KnownDialog dialog(owner.get(), place);
    PlaceDialog(dialog.tracked);
    EXPECT_EQ(CornerOf(owner.Place()), CornerOf(dialog.Place()));
}

TEST_F(DialogPlacementTest, TellsTheDialogOnlyThatItMoved) {
    settings.SetDialogControl(3, 1);
    KnownDialog dialog(nullptr, place);
    std::vector<UINT> told;
    seen = [&](HWND, UINT message) { told.push_back(message); };
    PlaceDialog(dialog.tracked);
    EXPECT_EQ(0, std::count(told.begin(), told.end(), UINT{WM_WINDOWPOSCHANGING}));
    EXPECT_EQ(1, std::count(told.begin(), told.end(), UINT{WM_WINDOWPOSCHANGED}));
    told.clear();
    SetWindowPos(dialog.get(), nullptr, 5, 5, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_EQ(1, std::count(told.begin(), told.end(), UINT{WM_WINDOWPOSCHANGING})) << "its own again";
}

TEST_F(DialogPlacementTest, RepaintsForTheProgramsThatNeedIt) {
    struct Case {
        const char* what;
        bool explorer, winproj;
        DWORD mode;
        unsigned paints;  // while it is placed
        bool posted;      // WM_NCPAINT, afterwards
        bool invalid;     // afterwards
    };
    constexpr Case Cases[] = {
        {"ordinary program", false, false, 3, 0, false, false},
        {"the shell", true, false, 3, 1, true, false},
        {"the shell, default place", true, false, 0, 1, true, false},
        {"winproj", false, true, 0, 0, false, true},
    };
    for (const Case& test : Cases) {
        SCOPED_TRACE(test.what);
        profile.program.explorer = test.explorer;
        profile.program.winproj = test.winproj;
        settings.SetDialogControl(test.mode, 1);
        KnownDialog dialog(nullptr, place);
        ShowWindow(dialog.get(), SW_SHOWNA);
        UpdateWindow(dialog.get());
        PumpAll();
        unsigned paints = 0;
        seen = [&](HWND window, UINT message) {
            paints += message == WM_PAINT && GetUpdateRect(window, nullptr, FALSE);
        };
        PlaceDialog(dialog.tracked);
        EXPECT_EQ(test.paints, paints);
        MSG message;
        EXPECT_EQ(test.posted, PeekMessageA(&message, dialog.get(), WM_NCPAINT, WM_NCPAINT, PM_REMOVE) != FALSE);
        RECT client = {};
        RECT invalid = {};
        GetClientRect(dialog.get(), &client);
        GetUpdateRect(dialog.get(), &invalid, FALSE);
        EXPECT_EQ(test.invalid ? client : RECT{}, invalid);
    }
}

// The program activates its dialog once more in the middle of it.
TEST_F(DialogPlacementTest, DoesNothingInsideItself) {
    settings.SetDialogControl(3, 1);
    KnownDialog dialog(nullptr, place);
    const WNDPROC own = dialog.Procedure();
    unsigned nested = 0;
    unsigned reached = 0;
    seen = [&](HWND, UINT message) {
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
    EXPECT_EQ(CentredOn(place, first.workArea, bounds), CornerOf(dialog.Place()));
}

TEST_F(DialogPlacementTest, OutlivesItsDialog) {
    settings.SetDialogControl(3, 1);
    KnownDialog dialog(nullptr, place);
    seen = [&](HWND window, UINT message) {
        if (message == WM_WINDOWPOSCHANGED) DestroyWindow(window);
    };
    PlaceDialog(dialog.tracked);
    EXPECT_FALSE(IsWindow(dialog.get()));
    PlaceDialog(dialog.tracked);
}

// Each waits for the other in the middle of being placed.
TEST_F(DialogPlacementTest, PlacesTwoDialogsAtOneMoment) {
    settings.SetDialogControl(2, 1);
    const HANDLE inside[] = {CreateEventA(nullptr, TRUE, FALSE, nullptr), CreateEventA(nullptr, TRUE, FALSE, nullptr)};
    struct Outcome {
        RECT place;
        bool met;
        bool ownProcedure;
    };
    const auto run = [&](int number, const RECT& at) {
        KnownDialog dialog(nullptr, at);
        const WNDPROC own = dialog.Procedure();
        Outcome outcome = {};
        seen = [&](HWND, UINT message) {
            if (message != WM_WINDOWPOSCHANGED) return;
            SetEvent(inside[number]);
            outcome.met = WaitForSingleObject(inside[1 - number], Deadline) == WAIT_OBJECT_0;
        };
        PlaceDialog(dialog.tracked);
        outcome.place = dialog.Place();
        outcome.ownProcedure = dialog.Procedure() == own;
        return outcome;
    };
    const RECT places[] = {Shifted(place, first.workArea.left - last.workArea.left, 0), place};
    const RECT areas[] = {first.workArea, last.workArea};
    Outcome outcomes[2] = {};
    std::thread other([&] { outcomes[1] = run(1, places[1]); });
    outcomes[0] = run(0, places[0]);
    other.join();
    for (int number = 0; number < 2; ++number) {
        SCOPED_TRACE(number);
        EXPECT_TRUE(outcomes[number].met);
        EXPECT_TRUE(outcomes[number].ownProcedure);
        const POINT corner = CentredOn(places[number], areas[number], bounds);
        EXPECT_EQ(corner, CornerOf(outcomes[number].place));
        CloseHandle(inside[number]);
    }
}

}  // namespace
}  // namespace halyard::test
