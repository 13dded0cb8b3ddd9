#include "support/input.h"

#include "support/arrangement.h"

namespace halyard::test {

namespace {

// Input is made beneath the runtime, in the X server. Input that is injected into the runtime is undone by what that
// server says later: it knows of no held keys, and while a program holds the pointer, as in menus and drags, the
// runtime can't move the server's pointer along. Each line of commands goes into a file that a shell follows.
void Do(const std::string& line) {
    static std::FILE* commands = nullptr;
    if (!commands) {
        commands = std::fopen("C:\\input.txt", "wb");
        RunBeneath("tail -f $WINEPREFIX/drive_c/input.txt | while read -r line; do xdotool $line; done");
    }
    std::fputs((line + "\n").c_str(), commands);
    std::fflush(commands);
}

std::string MoveText(POINT to) {
    return Format("mousemove %ld %ld ", to.x - GetSystemMetrics(SM_XVIRTUALSCREEN),
                  to.y - GetSystemMetrics(SM_YVIRTUALSCREEN));
}

testing::AssertionResult LoopBecomes(HWND window, DWORD flag, DWORD wanted) {
    return Comes([&] { return (ThreadOf(window).flags & flag) == wanted; },
                 [&] { return Format("state %lx of ", ThreadOf(window).flags) + Describe(window); });
}

}  // namespace

void MoveMouse(POINT to) {
    Do(MoveText(to));
    POINT cursor = {};
    EXPECT_TRUE(Eventually([&] { return GetCursorPos(&cursor) && cursor.x == to.x && cursor.y == to.y; }));
}

void PressMouse() {
    Do("mousedown 1");
}
void ReleaseMouse() {
    Do("mouseup 1");
}

void Click(POINT at) {
    // Two at one place, soon after each other, would be a double-click.
    static int aside = 3;
    aside = -aside;
    Do(MoveText({at.x + aside, at.y}) + "click 1");
}
void DoubleClick(POINT at) {
    Do(MoveText(at) + "click --repeat 2 --delay 40 1");
}
void RightClick(POINT at) {
    Do(MoveText(at) + "click 3");
}

void TapKey(const std::string& key) {
    Do("key " + key);
}
HeldKey::HeldKey(const std::string& heldKey) : key(heldKey) {
    Do("keydown " + key);
}
HeldKey::~HeldKey() {
    Do("keyup " + key);
}

testing::AssertionResult BringToFront(HWND window) {
    // The X server's word on the focus comes later than the platform's, and may take the focus back from a window
    // that had asked for it before another one got it.
    constexpr int Settled = 10;  // polls
    int seen = 0;
    const auto isSettled = [&] {
        const bool inFront = GetForegroundWindow() == window && ThreadOf(window).hwndActive == window;
        seen = inFront ? seen + 1 : 0;
        if (!inFront) SetForegroundWindow(window);
        return seen >= Settled;
    };
    // Keys reach the platform, by one that does nothing.
    const auto hearsKeys = [] {
        const HeldKey shift("shift");
        return Eventually([] { return GetAsyncKeyState(VK_SHIFT) < 0; }, 500);
    };
    if (Eventually(isSettled) && Eventually(hearsKeys) && Eventually([] { return GetAsyncKeyState(VK_SHIFT) >= 0; }))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << Describe(window) << " isn't in front, but "
                                       << Describe(GetForegroundWindow());
}

testing::AssertionResult EntersLoop(HWND window, DWORD flag) {
    return LoopBecomes(window, flag, flag);
}
testing::AssertionResult LeavesLoop(HWND window, DWORD flag) {
    return LoopBecomes(window, flag, 0);
}

testing::AssertionResult OpenSystemMenu(HWND window) {
    const testing::AssertionResult inFront = BringToFront(window);
    if (inFront) TapKey("alt+space");
    return inFront ? EntersLoop(window, GUI_INMENUMODE) : inFront;
}

POINT CaptionOf(HWND window) {
    const RECT place = PlaceOf(window);
    return {(place.left + place.right) / 2,
            place.top + GetSystemMetrics(SM_CYSIZEFRAME) + GetSystemMetrics(SM_CYCAPTION) / 2};
}

POINT MiddleOf(HWND window) {
    const RECT place = PlaceOf(window);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

testing::AssertionResult BecomesPlaced(HWND window, const RECT& wanted) {
    const auto isThere = [&] {
        const RECT place = PlaceOf(window);
        return EqualRect(&place, &wanted) != FALSE;
    };
    return Comes(isThere, [&] {
        return Format("should stand at %ld,%ld to %ld,%ld: ", wanted.left, wanted.top, wanted.right, wanted.bottom) +
               Describe(window);
    });
}

Drag::Drag(HWND draggedWindow, POINT gripPoint) : window(draggedWindow), grip(gripPoint) {
    EXPECT_TRUE(BringToFront(window));
    MoveMouse(grip);
    PressMouse();
    const testing::AssertionResult entered = EntersLoop(window, GUI_INMOVESIZE);
    EXPECT_TRUE(began = entered) << entered.message();
}

void Drag::To(int dx, int dy) {
    offset = {dx, dy};
    MoveMouse({grip.x + dx, grip.y + dy});
}

void Drag::SlowlyTo(int dx, int dy) {
    const POINT from = offset;
    constexpr int Steps = 16;
    for (int step = 1; step <= Steps; ++step) {
        To(from.x + (dx - from.x) * step / Steps, from.y + (dy - from.y) * step / Steps);
        Ask(window, WM_NULL);
    }
}

void Drag::Drop() {
    if (!held) return;
    held = false;
    ReleaseMouse();
    EXPECT_TRUE(!IsWindow(window) || LeavesLoop(window, GUI_INMOVESIZE));
}

}  // namespace halyard::test
