// Two displays of 1024 by 768 stand side by side, whatever stands behind them.
#include "drag_fixture.h"

#include <functional>
#include <thread>

namespace halyard::test {
namespace {

class DragLoopTest : public DragTest {
protected:
    void SetUp() override {
        ASSERT_EQ((RECT{0, 0, 1024, 768}), displays[0].whole);
        ASSERT_EQ((RECT{1024, 0, 2048, 768}), displays[1].whole);
    }

    // Whether a loop of this window is watched and docks.
    void ExpectDocks(KnownWindow& window) {
        Enter(window);
        EXPECT_EQ(window.get(), dragLoop.window);
        EXPECT_EQ((RECT{724, 100, 1024, 300}), Move(window, {700, 0}));
        Exit(window);
        EXPECT_EQ(nullptr, dragLoop.window);
    }

    const RECT place = {100, 100, 400, 300};
};

// One drag; each step says where the cursor is by then, and where the window shows.
TEST_F(DragLoopTest, DocksToTheEdgeThatDisplaysShare) {
    struct Step {
        const char* what;
        POINT way;
        RECT shown;
    };
    constexpr Step Steps[] = {
        {"clear of it", {10, 0}, {110, 100, 410, 300}},
        {"flush with it", {624, 0}, {724, 100, 1024, 300}},
        {"over it", {625, 0}, {724, 100, 1024, 300}},
        {"far over it", {700, 0}, {724, 100, 1024, 300}},
        {"the larger part on the other display", {800, 0}, {1024, 100, 1324, 300}},
        {"flush on the other side", {924, 0}, {1024, 100, 1324, 300}},
        {"clear on the other side", {1000, 0}, {1100, 100, 1400, 300}},
        {"over what may be a bar there", {1000, -90}, {1100, 10, 1400, 210}},
        {"back over it", {760, -40}, {724, 60, 1024, 260}},
        {"out of the left side", {-150, 0}, {-50, 100, 250, 300}},
        {"out of the top", {0, -150}, {100, -50, 400, 150}},
        {"out of the bottom", {0, 330}, {100, 430, 400, 630}},
        {"out of the bottom, farther", {20, 360}, {120, 460, 420, 660}},
        {"where it began", {0, 0}, {100, 100, 400, 300}},
    };
    KnownWindow window(Form(place));
    std::vector<RECT> seen;
    window.handler = [&](UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
        if (message != WM_MOVING) return std::nullopt;
        seen.push_back(*reinterpret_cast<const RECT*>(lParam));
        return 77;
    };
    Enter(window);
    for (const Step& step : Steps) {
        seen.clear();
        RECT shown;
        const LRESULT answer = Move(window, step.way, shown);
        const RECT followed = Shifted(place, step.way.x, step.way.y);
        EXPECT_EQ(step.shown, shown) << step.what;
        // The program sees what isn't changed, and what it answers counts.
        const bool docked = !(step.shown == followed);
        EXPECT_EQ(docked ? 1 : 77, answer) << step.what;
        EXPECT_EQ(docked ? std::vector<RECT>() : std::vector<RECT>{followed}, seen) << step.what;
    }
    Exit(window);
}

// Some platforms count each step from where the one before left the window.
TEST_F(DragLoopTest, FollowsTheCursorWhateverThePlatformProposes) {
    struct Step {
        POINT way;
        LONG shown;
    };
    constexpr Step Steps[] = {{{200, 0}, 300}, {{700, 0}, 724}, {{790, 0}, 1024}, {{950, 0}, 1050},
                              {{650, 0}, 724}, {{300, 0}, 400}, {{-50, 0}, 50},   {{0, 0}, 100}};
    KnownWindow window(Form(place));
    Enter(window);
    RECT shown = place;
    LONG cursor = 0;
    for (const Step& step : Steps) {
        shown = Shifted(shown, step.way.x - cursor, 0);
        cursor = step.way.x;
        Send(window, step.way, shown);
        EXPECT_EQ(Shifted(place, step.shown - place.left, 0), shown) << "cursor " << cursor << " away";
    }
    Exit(window);

    // Until a step was docked, what the platform proposes stands.
    Enter(window);
    RECT proposed = {50, 60, 350, 260};
    Send(window, {20, 20}, proposed);
    EXPECT_EQ((RECT{50, 60, 350, 260}), proposed);
    Exit(window);
}

TEST_F(DragLoopTest, LeavesWindowsThatAreTooWideToDock) {
    KnownWindow window(Form({100, 100, 1300, 300}));
    Enter(window);
    EXPECT_EQ((RECT{100, 100, 1300, 300}), Move(window, {0, 0}));
    EXPECT_EQ((RECT{400, 130, 1600, 330}), Move(window, {300, 30}));
}

TEST_F(DragLoopTest, GoesByTheSettings) {
    struct Case {
        bool autodock;
        std::optional<bool> ofProgram;
        bool transparency;
        bool watched;
        bool docks;
    };
    constexpr Case Cases[] = {
        {true, std::nullopt, false, true, true},  {false, std::nullopt, false, false, false},
        {false, true, false, true, true},         {true, false, false, false, false},
        {false, std::nullopt, true, true, false}, {true, false, true, true, false},
        {true, std::nullopt, true, true, true},
    };
    for (const Case& test : Cases) {
        settings = Settings();
        UseSettings(test.autodock, test.transparency);
        if (test.ofProgram) settings.SetAppAutodock(*test.ofProgram);
        KnownWindow window(Form(place));
        const WNDPROC own = window.Procedure();
        Enter(window);
        const testing::Message what = testing::Message() << test.autodock << test.transparency << test.watched;
        EXPECT_EQ(test.watched, dragLoop.window != nullptr) << what;
        EXPECT_EQ(test.watched, own != window.Procedure()) << what;
        EXPECT_EQ(test.docks ? 724 : 800, Move(window, {700, 0}).left) << what;
        Exit(window);
        EXPECT_EQ(own, window.Procedure()) << what;
    }
}

TEST_F(DragLoopTest, LooksAtNoSizeLoop) {
    KnownWindow window(Form(place));
    RECT sized = {900, 100, 1200, 300};
    unsigned seen = 0;
    window.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_SIZING) ++seen;
        return std::nullopt;
    };
    Enter(window);
    SendMessageA(window.get(), WM_SIZING, WMSZ_RIGHT, reinterpret_cast<LPARAM>(&sized));
    EXPECT_EQ((RECT{900, 100, 1200, 300}), sized);
    EXPECT_EQ(1u, seen);
    Exit(window);
}

TEST_F(DragLoopTest, GivesTheProcedureBackHoweverTheLoopEnds) {
    using Messages = std::vector<UINT>;
    constexpr LRESULT OfTheProgram = 55;
    struct Case {
        const char* what;
        std::function<void(KnownWindow&)> end;
        bool destroysAtExit;  // the program, when the end of the loop comes to it
        Messages seen;        // of these: end of the loop, WM_DESTROY, WM_NCDESTROY
    };
    const Case cases[] = {
        {"end of the loop",
         [&](KnownWindow& window) { EXPECT_EQ(OfTheProgram, Exit(window)); },
         false,
         {WM_EXITSIZEMOVE}},
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
            KnownWindow window(Form(place, wide));
            Messages seen;
            window.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
                if (message != WM_EXITSIZEMOVE && message != WM_DESTROY && message != WM_NCDESTROY) return std::nullopt;
                seen.push_back(message);
                if (message != WM_EXITSIZEMOVE) return std::nullopt;
                if (test.destroysAtExit) DestroyWindow(window.get());
                return OfTheProgram;
            };
            const WNDPROC own = window.Procedure();
            Enter(window);
            Move(window, {30, 0});
            EXPECT_EQ(wide, IsWindowUnicode(window.get()) != FALSE);
            test.end(window);
            EXPECT_EQ(test.seen, seen);
            EXPECT_EQ(nullptr, dragLoop.window);
            if (IsWindow(window.get())) {
                EXPECT_EQ(own, window.Procedure());
                EXPECT_EQ(wide, IsWindowUnicode(window.get()) != FALSE);
            }
            KnownWindow next(Form(place));
            ExpectDocks(next);
        }
}

TEST_F(DragLoopTest, PassesTextsOfEitherInterfaceOn) {
    KnownWindow wide(Form(place, true));
    Enter(wide);
    SetWindowTextW(wide.get(), L"\x0416\x4E2D\x00E4");
    wchar_t wideText[20] = {};
    GetWindowTextW(wide.get(), wideText, 20);
    EXPECT_STREQ(L"\x0416\x4E2D\x00E4", wideText);
    Exit(wide);

    KnownWindow narrow(Form(place));
    Enter(narrow);
    SetWindowTextA(narrow.get(), "\xE4\xF6");
    char narrowText[20] = {};
    GetWindowTextA(narrow.get(), narrowText, 20);
    EXPECT_STREQ("\xE4\xF6", narrowText);
    Exit(narrow);
}

TEST_F(DragLoopTest, WatchesOneLoopAtATime) {
    KnownWindow first(Form(place));
    KnownWindow second(Form(place));
    const WNDPROC own = second.Procedure();
    Enter(first);
    const WNDPROC watched = first.Procedure();
    BeginDragLoop(second.tracked);
    BeginDragLoop(first.tracked);
    EXPECT_EQ(own, second.Procedure());
    EXPECT_EQ(watched, first.Procedure());
    EXPECT_TRUE(RunBeside([&] {
        KnownWindow other(Form({300, 300, 600, 500}));
        const WNDPROC before = other.Procedure();
        BeginDragLoop(other.tracked);
        EXPECT_EQ(before, other.Procedure());
    }));
    EXPECT_EQ((RECT{724, 100, 1024, 300}), Move(first, {700, 0}));
    Exit(first);
    ExpectDocks(first);
    ExpectDocks(second);
}

// The program can destroy its window before the hook comes to it.
TEST_F(DragLoopTest, WatchesNoWindowThatHasGone) {
    KnownWindow gone(Form(place));
    TrackedWindow tracked = gone.tracked;
    DestroyWindow(gone.get());
    BeginDragLoop(tracked);
    KnownWindow next(Form(place));
    ExpectDocks(next);
}

// A thread that ends takes its windows along without a message.
TEST_F(DragLoopTest, EndsWithTheThreadOfTheWindow) {
    HWND left = nullptr;
    EXPECT_TRUE(RunBeside([&] {
        left = CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW, 100, 100, 300, 200, nullptr, nullptr, nullptr,
                               nullptr);
        TrackedWindow tracked(left);
        BeginDragLoop(tracked);
        EXPECT_EQ(left, dragLoop.window);
    }));
    ASSERT_FALSE(IsWindow(left));
    KnownWindow next(Form(place));
    ExpectDocks(next);
}

}  // namespace
}  // namespace halyard::test
