// Real dialog boxes in the place that the user chose, in programs that meddle with it meanwhile.
#include "behaviours/inprocess_fixture.h"
#include "hook/behaviours.h"

#include <functional>
#include <thread>

namespace halyard::test {
namespace {

constexpr POINT CornerOf(const RECT& rect) {
    return {rect.left, rect.top};
}

// Sees what the dialog's own procedure gets. One at a time per thread.
thread_local std::function<void(HWND, UINT)> seen;

INT_PTR CALLBACK NotingDialogProc(HWND dialog, UINT message, WPARAM, LPARAM) {
    if (seen) seen(dialog, message);
    return FALSE;
}

struct KnownDialog : KnownWindow {
    explicit KnownDialog(const RECT& place) : KnownWindow(MakeDialog(WS_POPUP | WS_CAPTION | WS_SYSMENU, nullptr)) {
        SetWindowPos(get(), nullptr, place.left, place.top, WidthOf(place), HeightOf(place), SWP_NOZORDER);
        SetWindowLongPtrA(get(), DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(NotingDialogProc));
    }
    ~KnownDialog() { seen = nullptr; }
};

class DialogPlacementTest : public BehaviourTest {
protected:
    const RealDisplay& first = displays.front();
    const RealDisplay& last = displays.back();
    const RECT place = Shifted({0, 0, 260, 180}, last.workArea.left + 40, last.workArea.top + 30);
};

TEST_F(DialogPlacementTest, RepaintsForTheProgramsThatNeedIt) {
    struct Case {
        const char* what;
        bool explorer, winproj;
        DWORD mode;
        bool paints;   // while it is placed
        bool posted;   // WM_NCPAINT, afterwards
        bool invalid;  // afterwards
    };
    constexpr Case Cases[] = {
        {"ordinary program", false, false, 3, false, false, false},
        {"the shell", true, false, 3, true, true, false},
        {"the shell, default place", true, false, 0, true, true, false},
        {"winproj", false, true, 0, false, false, true},
    };
    for (const Case& test : Cases) {
        SCOPED_TRACE(test.what);
        profile.program.explorer = test.explorer;
        profile.program.winproj = test.winproj;
        settings.SetDialogControl(test.mode, 1);
        KnownDialog dialog(place);
        ShowWindow(dialog.get(), SW_SHOWNA);
        UpdateWindow(dialog.get());
        PumpAll();
        bool paints = false;
        bool asked = false;
        seen = [&](HWND window, UINT message) {
            paints |= message == WM_PAINT && GetUpdateRect(window, nullptr, FALSE);
            asked |= message == WM_WINDOWPOSCHANGING;
        };
        PlaceDialog(dialog.tracked);
        EXPECT_EQ(test.paints, paints);
        EXPECT_FALSE(asked) << "it is only told that it moved";
        MSG message;
        EXPECT_EQ(test.posted, PeekMessageA(&message, dialog.get(), WM_NCPAINT, WM_NCPAINT, PM_REMOVE) != FALSE);
        EXPECT_EQ(test.invalid, GetUpdateRect(dialog.get(), nullptr, FALSE) != FALSE);
    }
}

// The program activates its dialog once more in the middle of it, or destroys it.
TEST_F(DialogPlacementTest, DoesNothingInsideItselfAndOutlivesItsDialog) {
    settings.SetDialogControl(3, 1);
    KnownDialog dialog(place);
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

    SetWindowPos(dialog.get(), nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
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
    const auto run = [&](int number, const RECT& at, const RECT& area) {
        KnownDialog dialog(at);
        const WNDPROC own = dialog.Procedure();
        bool met = false;
        seen = [&](HWND, UINT message) {
            if (message != WM_WINDOWPOSCHANGED) return;
            SetEvent(inside[number]);
            met = WaitForSingleObject(inside[1 - number], Deadline) == WAIT_OBJECT_0;
        };
        PlaceDialog(dialog.tracked);
        EXPECT_TRUE(met);
        EXPECT_EQ(own, dialog.Procedure());
        EXPECT_EQ(CentredOn(at, area, bounds), CornerOf(dialog.Place()));
    };
    std::thread other([&] { run(1, place, last.workArea); });
    run(0, Shifted(place, first.workArea.left - last.workArea.left, 0), first.workArea);
    other.join();
    for (HANDLE event : inside)
        CloseHandle(event);
}

}  // namespace
}  // namespace halyard::test
