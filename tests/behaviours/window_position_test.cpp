#include "behaviours/window_position.h"

#include "behaviour_fixture.h"

#include <algorithm>

namespace halyard::test {
namespace {

class WindowPositionTest : public BehaviourTest {
protected:
    static HMONITOR DisplayOf(const TestWindow& window) {
        return MonitorFromWindow(window.get(), MONITOR_DEFAULTTONEAREST);
    }
    // As it should go on: by handle, which has nothing to do with the order of the enumeration.
    static std::vector<RealDisplay> InOrderOfHandles(std::vector<RealDisplay> list) {
        std::sort(list.begin(), list.end(), [](const RealDisplay& a, const RealDisplay& b) {
            return HandleBits(a.handle) < HandleBits(b.handle);
        });
        return list;
    }
    // A window of this size, on its display by its work area's corner.
    static RECT PlaceOn(const RealDisplay& display, LONG dx = 100, LONG dy = 80) {
        return Shifted({0, 0, 300, 200}, display.workArea.left + dx, display.workArea.top + dy);
    }
};

// Each operation moves the window by itself, or edits the move under way and leaves the window alone.
TEST_F(WindowPositionTest, CentresWindows) {
    const TestWindow owner(WindowForm{.place = Shifted({0, 0, 500, 400}, bounds.left + 30, bounds.top + 20)});
    const RECT ownerPlace = owner.Place();
    const RealDisplay& last = displays.back();
    const RECT start = PlaceOn(last, 20, 30);
    const auto count = static_cast<DWORD>(displays.size());
    const RECT target = {bounds.left + 200, bounds.top + 100, bounds.left + 700, bounds.top + 400};
    RECT desktop = {};
    GetWindowRect(GetDesktopWindow(), &desktop);
    struct Case {
        const char* what;
        HWND parent;
        std::function<void(HWND, WINDOWPOS*)> centre;
        const RECT* target;  // null: nothing happens
    };
    const auto numbered = [](DWORD number) {
        return [=](HWND window, WINDOWPOS* move) { CentreOnNumberedDisplay(window, number, move); };
    };
    const Case cases[] = {
        {"rectangle", nullptr, [&](HWND window, WINDOWPOS* move) { CentreOnRect(window, target, move); }, &target},
        {"owner", owner.get(), CentreOnParent, &ownerPlace},
        {"desktop for want of an owner", nullptr, CentreOnParent, &desktop},
        {"display", nullptr, [&](HWND window, WINDOWPOS* move) { CentreOnDisplay(window, displays[0].handle, move); },
         &displays[0].workArea},
        {"display that has gone", nullptr,
         [&](HWND window, WINDOWPOS* move) { CentreOnDisplay(window, HandleFromBits<HMONITOR>(0x7EADBEEF), move); },
         nullptr},
        {"own display and not the owner's", owner.get(), CentreOnOwnDisplay, &last.workArea},
        {"number 0", nullptr, numbered(0), nullptr},
        {"first number", nullptr, numbered(1), &displays[0].workArea},
        {"last number", nullptr, numbered(count), &last.workArea},
        {"number behind the last", nullptr, numbered(count + 1), nullptr},
        {"number behind the limit", nullptr, numbered(11), nullptr},
        {"absurd number", nullptr, numbered(0xFFFFFFFF), nullptr},
    };
    for (const Case& test : cases)
        for (const bool underWay : {false, true}) {
            SCOPED_TRACE(testing::Message() << test.what << (underWay ? ", a move under way" : ""));
            const RECT* on = test.target;
            TestWindow window(WindowForm{.style = WS_POPUP, .parent = test.parent, .place = start});
            UINT moved = 0;
            window.handler = [&](UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
                if (message == WM_WINDOWPOSCHANGING) moved = reinterpret_cast<const WINDOWPOS*>(lParam)->flags;
                return std::nullopt;
            };
            WINDOWPOS move = {window.get(), nullptr, 7, 8, 9, 10, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER};
            test.centre(window.get(), underWay ? &move : nullptr);
            const POINT place = on ? CentredOn(start, *on, bounds) : POINT{start.left, start.top};
            if (!underWay) {
                EXPECT_EQ(Shifted(start, place.x - start.left, place.y - start.top), window.Place());
                EXPECT_EQ(on ? UINT{SWP_NOSIZE | SWP_NOZORDER | SWP_NOOWNERZORDER} : 0u, moved);
                continue;
            }
            EXPECT_EQ(start, window.Place());
            EXPECT_EQ((on ? place : POINT{7, 8}), (POINT{move.x, move.y}));
            EXPECT_EQ(on ? UINT{SWP_NOSIZE | SWP_NOZORDER} : UINT{SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER}, move.flags);
            EXPECT_EQ((POINT{9, 10}), (POINT{move.cx, move.cy}));
        }
}

TEST_F(WindowPositionTest, CentresNoWindowThatHasGone) {
    HWND gone = TestWindow().get();
    WINDOWPOS move = {gone, nullptr, 7, 8, 9, 10, SWP_NOMOVE};
    CentreOnRect(gone, bounds, &move);
    CentreOnOwnDisplay(gone, &move);
    CentreOnDisplay(gone, displays[0].handle, &move);
    CentreOnParent(gone, &move);
    EXPECT_EQ((POINT{7, 8}), (POINT{move.x, move.y}));
    EXPECT_EQ(UINT{SWP_NOMOVE}, move.flags);
    profile.enumDisplayMonitors = nullptr;
    CentreOnNumberedDisplay(server.get(), 1, &move);
    EXPECT_EQ(UINT{SWP_NOMOVE}, move.flags);
}

TEST_F(WindowPositionTest, TellsAVisibleParent) {
    const TestWindow shown(WindowForm{.style = WS_POPUP | WS_VISIBLE});
    const TestWindow hidden(WindowForm{.style = WS_POPUP});
    const TestWindow program(WindowForm{.style = WS_POPUP | WS_VISIBLE});
    profile.progmanWindow = program.get();
    struct Case {
        const char* what;
        DWORD style;
        HWND parent;
        bool visible;
    };
    const Case cases[] = {
        {"none", WS_POPUP, nullptr, false},
        {"the desktop", WS_CHILD, GetDesktopWindow(), false},
        {"visible owner", WS_POPUP, shown.get(), true},
        {"visible parent", WS_CHILD, shown.get(), true},
        {"hidden owner", WS_POPUP, hidden.get(), false},
        {"hidden parent", WS_CHILD, hidden.get(), false},
        {"the shell's desktop window", WS_POPUP, program.get(), false},
    };
    for (const Case& test : cases) {
        const TestWindow window(WindowForm{.style = test.style, .parent = test.parent});
        EXPECT_EQ(test.visible, HasVisibleParent(window.get())) << test.what;
    }
}

TEST_F(WindowPositionTest, SetsTopmostQuietlyAndTogglesItWithActivation) {
    const TestWindow window(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    const TestWindow other(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    const RECT place = window.Place();
    struct Case {
        const char* what;
        std::function<void(HWND)> change;
        bool topmost;
        bool activates;
    };
    const Case cases[] = {
        {"set", [](HWND target) { SetTopmost(target, true); }, true, false},
        {"set again", [](HWND target) { SetTopmost(target, true); }, true, false},
        {"toggled off", ToggleTopmost, false, true},
        {"toggled on", ToggleTopmost, true, true},
        {"taken", [](HWND target) { SetTopmost(target, false); }, false, false},
        {"taken again", [](HWND target) { SetTopmost(target, false); }, false, false},
    };
    for (const Case& test : cases) {
        SetActiveWindow(other.get());
        test.change(window.get());
        EXPECT_EQ(test.topmost, IsTopmost(window.get())) << test.what;
        EXPECT_EQ(test.activates ? window.get() : other.get(), GetActiveWindow()) << test.what;
        EXPECT_EQ(place, window.Place()) << test.what;
    }
}

TEST_F(WindowPositionTest, FindsAnotherWindowWithTheSameRectangle) {
    const RECT rect = {333, 222, 555, 444};
    const TestWindow window(WindowForm{.style = WS_POPUP, .place = rect});
    EXPECT_FALSE(SameRectWindowExists(window.get(), rect)) << "the window itself doesn't count";
    EXPECT_TRUE(SameRectWindowExists(nullptr, rect));
    for (int side = 0; side < 4; ++side) {
        RECT beside = rect;
        (side == 0 ? beside.left : side == 1 ? beside.top : side == 2 ? beside.right : beside.bottom) += 1;
        EXPECT_FALSE(SameRectWindowExists(nullptr, beside)) << beside;
    }
    const TestWindow twin(WindowForm{.style = WS_POPUP, .place = rect});
    EXPECT_TRUE(SameRectWindowExists(window.get(), rect));
    EXPECT_TRUE(SameRectWindowExists(twin.get(), rect));
}

TEST_F(WindowPositionTest, GoesRoundTheDisplaysWithItsOffset) {
    const auto order = InOrderOfHandles(displays);
    const RECT start = PlaceOn(order[0]);
    const TestWindow window(WindowForm{.place = start});
    for (std::size_t step = 1; step <= order.size(); ++step) {
        MoveToNextDisplay(window.get());
        EXPECT_EQ(PlaceOn(order[step % order.size()]), window.Place()) << "after " << step << " moves";
    }
    EXPECT_EQ(start, window.Place());
}

TEST_F(WindowPositionTest, HangsOverTheEdgeOfTheNextDisplayRatherThanShrink) {
    const auto order = InOrderOfHandles(displays);
    const LONG dx = WidthOf(order[0].workArea) - 160;
    const TestWindow window(WindowForm{.place = PlaceOn(order[0], dx, 20)});
    MoveToNextDisplay(window.get());
    EXPECT_EQ(PlaceOn(order[1], dx, 20), window.Place());
}

TEST_F(WindowPositionTest, StaysMaximisedOnTheWayRound) {
    const auto order = InOrderOfHandles(displays);
    const TestWindow window(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE, .place = PlaceOn(order[0])});
    ShowWindow(window.get(), SW_MAXIMIZE);
    const RECT maximised = window.Place();
    const RECT normal = NormalPlaceOf(window);
    for (std::size_t step = 1; step <= order.size(); ++step) {
        SCOPED_TRACE(testing::Message() << "after " << step << " moves");
        const RealDisplay& there = order[step % order.size()];
        MoveToNextDisplay(window.get());
        EXPECT_TRUE(IsZoomed(window.get()));
        EXPECT_EQ(there.handle, DisplayOf(window)) << window.Place();
        EXPECT_EQ(
            Shifted(normal, there.workArea.left - order[0].workArea.left, there.workArea.top - order[0].workArea.top),
            NormalPlaceOf(window));
    }
    EXPECT_EQ(maximised, window.Place());
}

TEST_F(WindowPositionTest, GoesNowhereWithoutANextDisplay) {
    PretendDisplays(1);
    RefreshDisplays();
    const RECT start = PlaceOn(displays[0]);
    TestWindow window(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE, .place = start});
    MoveToNextDisplay(window.get());
    EXPECT_EQ(start, window.Place());

    ShowWindow(window.get(), SW_MAXIMIZE);
    std::vector<WPARAM> commands;
    window.handler = [&](UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_SYSCOMMAND) commands.push_back(wParam);
        return std::nullopt;
    };
    MoveToNextDisplay(window.get());
    EXPECT_EQ(std::vector<WPARAM>{SC_MAXIMIZE}, commands);
    EXPECT_TRUE(IsZoomed(window.get()));
    EXPECT_EQ(displays[0].handle, DisplayOf(window));

    const RECT beside = PlaceOn(displays[1]);
    const TestWindow unknown(WindowForm{.place = beside});
    MoveToNextDisplay(unknown.get());
    EXPECT_EQ(beside, unknown.Place()) << "on a display that isn't in the table";
}

TEST_F(WindowPositionTest, KeepsWindowsWithinReach) {
    const RECT& first = displays[0].workArea;
    const RECT& last = displays.back().workArea;
    struct Case {
        const char* what;
        RECT before;
        RECT after;
    };
    const Case cases[] = {
        {"on a display", PlaceOn(displays[0]), PlaceOn(displays[0])},
        {"a corner of it",
         {first.left - 290, first.top + 5, first.left + 10, first.top + 205},
         {first.left - 290, first.top + 5, first.left + 10, first.top + 205}},
        {"far right",
         {9000, last.top + 60, 9300, last.top + 260},
         {last.right - 300, last.top + 60, last.right, last.top + 260}},
        {"far left and above",
         {-9000, -9000, -8700, -8800},
         {first.left, first.top, first.left + 300, first.top + 200}},
    };
    for (const Case& test : cases)
        EXPECT_EQ(test.after, WithinReach(test.before)) << test.what;
}

}  // namespace
}  // namespace halyard::test
