// Move loops as the platform sends them, with the cursor for real. Two displays of 1024 by 768 stand side by side,
// whatever stands behind them.
#include "behaviours/drag_loop.h"

#include "behaviours/inprocess_fixture.h"
#include "hook/behaviours.h"

#include <functional>

namespace halyard::test {
namespace {

class DragLoopTest : public BehaviourTest {
protected:
    DragLoopTest() {
        settings.SetAutodock(true);
        settings.SetDragTrans(true);
        settings.SetDragTransPerCent(75);
    }
    ~DragLoopTest() override { EndDragLoop(); }

    WindowForm Form(bool wide = false) const {
        return {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE, .place = place, .wide = wide};
    }

    // The hook calls when the program has had the message.
    void Enter(KnownWindow& window) {
        SetCursorPos(grip.x, grip.y);
        SendMessageA(window.get(), WM_ENTERSIZEMOVE, 0, 0);
        BeginDragLoop(window.tracked);
    }
    // The cursor is `way` from where the loop began; `rect` is what the platform proposes, and then what came of it.
    LRESULT Send(const KnownWindow& window, LONG way, RECT& rect) {
        SetCursorPos(grip.x + way, grip.y);
        return SendMessageA(window.get(), WM_MOVING, 9, reinterpret_cast<LPARAM>(&rect));
    }
    static LRESULT Exit(const KnownWindow& window) { return SendMessageA(window.get(), WM_EXITSIZEMOVE, 0, 0); }

    // Whether a loop of this window is watched, docks and shows it transparent.
    void ExpectDocks(KnownWindow& window) {
        Enter(window);
        RECT rect = Shifted(place, 700, 0);
        Send(window, 700, rect);
        EXPECT_EQ((RECT{724, 100, 1024, 300}), rect);
        EXPECT_EQ(191, AlphaOf(window));
        Exit(window);
        EXPECT_EQ(nullptr, dragLoop.window);
        EXPECT_EQ(-1, AlphaOf(window));
    }

    // -1 of a window that isn't layered.
    static int AlphaOf(const TestWindow& window) {
        BYTE alpha = 0;
        if (!(GetWindowLongA(window.get(), GWL_EXSTYLE) & WS_EX_LAYERED)) return -1;
        return GetLayeredWindowAttributes(window.get(), nullptr, &alpha, nullptr) ? alpha : -2;
    }

    const RECT place = {100, 100, 400, 300};
    const POINT grip = {640, 400};
};

// Some platforms count each step from where the one before left the window. The program sees what isn't changed, and
// what it answers counts.
TEST_F(DragLoopTest, FollowsTheCursorWhateverThePlatformProposes) {
    constexpr std::pair<LONG, LONG> Steps[] = {{200, 300}, {700, 724}, {790, 1024}, {950, 1050},
                                               {650, 724}, {300, 400}, {-50, 50},   {0, 100}};
    KnownWindow window(Form());
    std::vector<LONG> seen;
    window.handler = [&](UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
        if (message != WM_MOVING) return std::nullopt;
        seen.push_back(reinterpret_cast<const RECT*>(lParam)->left);
        return 77;
    };
    Enter(window);
    RECT shown = place;
    LONG cursor = 0;
    for (const auto& [way, left] : Steps) {
        shown = Shifted(shown, way - cursor, 0);
        cursor = way;
        const bool docked = left != place.left + way;
        EXPECT_EQ(docked ? 1 : 77, Send(window, way, shown)) << way;
        EXPECT_EQ(Shifted(place, left - place.left, 0), shown) << "cursor " << way << " away";
    }
    EXPECT_EQ((std::vector<LONG>{300, 1050, 400, 50, 100}), seen);
    Exit(window);
    // Until a step was docked, what the platform proposes stands.
    Enter(window);
    RECT proposed = {50, 60, 350, 260};
    Send(window, 20, proposed);
    EXPECT_EQ((RECT{50, 60, 350, 260}), proposed);
}

TEST_F(DragLoopTest, GivesTheProcedureBackHoweverTheLoopEnds) {
    using Messages = std::vector<UINT>;
    struct Case {
        const char* what;
        std::function<void(KnownWindow&)> end;
        bool destroysAtExit;  // the program, when the end of the loop comes to it
        Messages seen;        // of these: end of the loop, WM_DESTROY, WM_NCDESTROY
    };
    const Case cases[] = {
        {"end of the loop", [&](KnownWindow& window) { EXPECT_EQ(55, Exit(window)); }, false, {WM_EXITSIZEMOVE}},
        {"the library leaves", [](KnownWindow&) { EndDragLoop(); }, false, {}},
        {"the window goes",
         [](KnownWindow& window) { DestroyWindow(window.get()); },
         false,
         {WM_DESTROY, WM_NCDESTROY}},
        {"the window goes at the end of the loop",
         [](KnownWindow& window) { Exit(window); },
         true,
         {WM_EXITSIZEMOVE, WM_DESTROY, WM_NCDESTROY}},
    };
    for (const Case& test : cases)
        for (const bool wide : {false, true}) {
            SCOPED_TRACE(testing::Message() << test.what << (wide ? ", wide" : ", narrow"));
            KnownWindow window(Form(wide));
            Messages seen;
            window.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
                if (message != WM_EXITSIZEMOVE && message != WM_DESTROY && message != WM_NCDESTROY) return std::nullopt;
                seen.push_back(message);
                if (message != WM_EXITSIZEMOVE) return std::nullopt;
                EXPECT_EQ(-1, AlphaOf(window)) << "the transparency ends ahead of the program";
                if (test.destroysAtExit) DestroyWindow(window.get());
                return 55;
            };
            const WNDPROC own = window.Procedure();
            Enter(window);
            RECT rect = Shifted(place, 30, 0);
            Send(window, 30, rect);
            EXPECT_EQ(wide, IsWindowUnicode(window.get()) != FALSE);
            test.end(window);
            EXPECT_EQ(test.seen, seen);
            EXPECT_EQ(nullptr, dragLoop.window);
            EXPECT_TRUE(!IsWindow(window.get()) || own == window.Procedure());
            KnownWindow next(Form());
            ExpectDocks(next);
        }
}

TEST_F(DragLoopTest, WatchesOneLoopAtATime) {
    KnownWindow first(Form());
    KnownWindow second(Form());
    Enter(first);
    const WNDPROC watched = first.Procedure();
    BeginDragLoop(second.tracked);
    BeginDragLoop(first.tracked);
    EXPECT_EQ(watched, first.Procedure());
    EXPECT_NE(watched, second.Procedure());
    EXPECT_TRUE(RunBeside([&] {
        KnownWindow other(Form());
        BeginDragLoop(other.tracked);
        EXPECT_NE(watched, other.Procedure());
    }));
    Exit(first);
    ExpectDocks(first);
    ExpectDocks(second);
}

// The program can destroy its window before the hook comes to it, and a thread that ends takes its windows along
// without a message.
TEST_F(DragLoopTest, WatchesTheNextWindowWhenOneHasGone) {
    KnownWindow gone(Form());
    TrackedWindow tracked = gone.tracked;
    DestroyWindow(gone.get());
    BeginDragLoop(tracked);
    KnownWindow next(Form());
    ExpectDocks(next);
    EXPECT_TRUE(RunBeside([&] {
        HWND left = CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW, 100, 100, 300, 200, nullptr, nullptr, nullptr,
                                    nullptr);
        TrackedWindow ofThread(left);
        RECT rect = {};
        BeginDragLoop(ofThread);
        SendMessageA(left, WM_MOVING, 9, reinterpret_cast<LPARAM>(&rect));
        EXPECT_TRUE(dragLoop.transparencyOn);
    }));
    ExpectDocks(next);
}

TEST_F(DragLoopTest, KeepsHowAProgramDrawsALayeredWindow) {
    KnownWindow window(Form());
    SetWindowLongA(window.get(), GWL_EXSTYLE, GetWindowLongA(window.get(), GWL_EXSTYLE) | WS_EX_LAYERED);
    ASSERT_TRUE(SetLayeredWindowAttributes(window.get(), RGB(255, 0, 255), 0, LWA_COLORKEY));
    Enter(window);
    RECT rect = place;
    Send(window, 0, rect);
    Exit(window);
    COLORREF key = 0;
    BYTE alpha = 0;
    DWORD flags = 0;
    ASSERT_TRUE(GetLayeredWindowAttributes(window.get(), &key, &alpha, &flags));
    EXPECT_EQ(RGB(255, 0, 255), key);
    EXPECT_EQ(255, alpha) << "solid, as it was";
    EXPECT_TRUE(flags & LWA_COLORKEY);

    // With attributes, what the program draws itself would no longer show.
    KnownWindow drawn(Form());
    SetWindowLongA(drawn.get(), GWL_EXSTYLE, GetWindowLongA(drawn.get(), GWL_EXSTYLE) | WS_EX_LAYERED);
    Enter(drawn);
    Send(drawn, 0, rect);
    EXPECT_FALSE(GetLayeredWindowAttributes(drawn.get(), nullptr, nullptr, nullptr));
    Exit(drawn);
    EXPECT_FALSE(GetLayeredWindowAttributes(drawn.get(), nullptr, nullptr, nullptr));
    EXPECT_TRUE(GetWindowLongA(drawn.get(), GWL_EXSTYLE) & WS_EX_LAYERED);
}

}  // namespace
}  // namespace halyard::test
