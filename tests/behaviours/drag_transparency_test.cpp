#include "drag_fixture.h"

#include <functional>

namespace halyard::test {
namespace {

struct Layered {
    bool layered;
    int alpha;  // -1: none was ever set
    DWORD flags;

    bool operator==(const Layered&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Layered& state) {
        return out << (state.layered ? "layered" : "solid") << ", alpha " << state.alpha << ", flags " << state.flags;
    }
};

constexpr Layered Solid = {false, -1, 0};

DWORD ExStyleOf(HWND window) {
    return static_cast<DWORD>(GetWindowLongA(window, GWL_EXSTYLE));
}

void AddExStyle(HWND window, DWORD bits) {
    SetWindowLongA(window, GWL_EXSTYLE, static_cast<LONG>(ExStyleOf(window) | bits));
}

class DragTransparencyTest : public DragTest {
protected:
    DragTransparencyTest() { UseSettings(false, true); }

    static Layered StateOf(const TestWindow& window) {
        if (!(ExStyleOf(window.get()) & WS_EX_LAYERED)) return Solid;
        BYTE alpha = 0;
        DWORD flags = 0;
        const bool set = GetLayeredWindowAttributes(window.get(), nullptr, &alpha, &flags) != FALSE;
        return {true, set ? alpha : -1, flags};
    }

    static void MakeLayered(const TestWindow& window, BYTE alpha) {
        AddExStyle(window.get(), WS_EX_LAYERED);
        ASSERT_TRUE(SetLayeredWindowAttributes(window.get(), 0, alpha, LWA_ALPHA));
    }

    const WindowForm form = Form({100, 100, 400, 300});
};

TEST_F(DragTransparencyTest, ShowsTheWindowWithTheChosenOpacityWhileItMoves) {
    struct Case {
        DWORD perCent;
        int alpha;
    };
    constexpr Case Cases[] = {{0, 0}, {50, 127}, {75, 191}, {100, 255}, {250, 255}};
    for (const bool wasLayered : {false, true})
        for (const Case& test : Cases) {
            SCOPED_TRACE(testing::Message() << test.perCent << " per cent" << (wasLayered ? ", layered" : ""));
            settings.SetDragTransPerCent(test.perCent);
            KnownWindow window(form);
            if (wasLayered) MakeLayered(window, 100);
            const Layered before = StateOf(window);
            Enter(window);
            EXPECT_EQ(before, StateOf(window)) << "not before it moves";
            Move(window, {5, 5});
            EXPECT_EQ((Layered{true, test.alpha, LWA_ALPHA}), StateOf(window));
            settings.SetDragTransPerCent(33);
            Move(window, {9, 9});
            EXPECT_EQ((Layered{true, test.alpha, LWA_ALPHA}), StateOf(window)) << "the same for all of the drag";
            Exit(window);
            EXPECT_EQ(wasLayered ? (Layered{true, 100, LWA_ALPHA}) : Solid, StateOf(window));
        }
}

// What the program sees of it: the window is as it was when the end of the loop comes to it.
TEST_F(DragTransparencyTest, EndsAheadOfTheProgram) {
    KnownWindow window(form);
    std::vector<Layered> seen;
    window.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_EXITSIZEMOVE || message == WM_MOVING) seen.push_back(StateOf(window));
        return std::nullopt;
    };
    Enter(window);
    Move(window, {5, 5});
    Exit(window);
    EXPECT_EQ((std::vector<Layered>{{true, 191, LWA_ALPHA}, Solid}), seen);
}

TEST_F(DragTransparencyTest, KeepsWhatTheProgramChangedMeanwhile) {
    KnownWindow window(form);
    Enter(window);
    Move(window, {5, 5});
    AddExStyle(window.get(), WS_EX_ACCEPTFILES);
    Exit(window);
    EXPECT_TRUE(ExStyleOf(window.get()) & WS_EX_ACCEPTFILES);
    EXPECT_EQ(Solid, StateOf(window));
}

TEST_F(DragTransparencyTest, StaysSolidWithoutAMove) {
    struct Case {
        const char* what;
        bool transparency;
        UINT message;
    };
    constexpr Case Cases[] = {{"a click on the caption", true, WM_NULL},
                              {"a size loop", true, WM_SIZING},
                              {"switched off", false, WM_MOVING}};
    for (const Case& test : Cases) {
        UseSettings(true, test.transparency);
        KnownWindow window(form);
        Enter(window);
        RECT rect = window.Place();
        SendMessageA(window.get(), test.message, 9, reinterpret_cast<LPARAM>(&rect));
        EXPECT_EQ(Solid, StateOf(window)) << test.what;
        Exit(window);
        EXPECT_EQ(Solid, StateOf(window)) << test.what;
    }
}

TEST_F(DragTransparencyTest, GoesTogetherWithDocking) {
    UseSettings(true, true);
    KnownWindow window(form);
    Enter(window);
    EXPECT_EQ(724, Move(window, {700, 0}).left);
    EXPECT_EQ((Layered{true, 191, LWA_ALPHA}), StateOf(window));
    Exit(window);
    EXPECT_EQ(Solid, StateOf(window));
}

TEST_F(DragTransparencyTest, EndsHoweverTheLoopEnds) {
    {
        KnownWindow gone(form);
        Enter(gone);
        Move(gone, {5, 5});
    }
    for (const bool wasLayered : {false, true}) {
        KnownWindow window(form);
        if (wasLayered) MakeLayered(window, 100);
        Enter(window);
        Move(window, {5, 5});
        EXPECT_EQ((Layered{true, 191, LWA_ALPHA}), StateOf(window)) << "after a window that went in its drag";
        EndDragLoop();
        EXPECT_EQ(wasLayered ? (Layered{true, 100, LWA_ALPHA}) : Solid, StateOf(window));
    }
}

TEST_F(DragTransparencyTest, BeginsAnewAfterAThreadThatEndedInItsDrag) {
    EXPECT_TRUE(RunBeside([&] {
        HWND left = CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW, 100, 100, 300, 200, nullptr, nullptr, nullptr,
                                    nullptr);
        TrackedWindow tracked(left);
        RECT rect = {};
        BeginDragLoop(tracked);
        SendMessageA(left, WM_MOVING, 9, reinterpret_cast<LPARAM>(&rect));
        EXPECT_TRUE(dragLoop.transparencyOn);
    }));
    KnownWindow window(form);
    MakeLayered(window, 100);
    Enter(window);
    Move(window, {5, 5});
    EXPECT_EQ((Layered{true, 191, LWA_ALPHA}), StateOf(window));
    Exit(window);
    EXPECT_EQ((Layered{true, 100, LWA_ALPHA}), StateOf(window));
}

// Its colour key is lost, but the window isn't.
TEST_F(DragTransparencyTest, LeavesAWindowWithAColourKeyInSight) {
    KnownWindow window(form);
    AddExStyle(window.get(), WS_EX_LAYERED);
    ASSERT_TRUE(SetLayeredWindowAttributes(window.get(), RGB(255, 0, 255), 0, LWA_COLORKEY));
    Enter(window);
    Move(window, {5, 5});
    Exit(window);
    EXPECT_EQ((Layered{true, 255, LWA_ALPHA}), StateOf(window));
}

}  // namespace
}  // namespace halyard::test
