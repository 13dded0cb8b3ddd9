#include "support/input.h"

#include "support/arrangement.h"
#include "support/windows_seen.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace halyard::test {

namespace {

// Input is made beneath the runtime, in the X server. Input that is injected into the runtime is undone by what that
// server says later: it knows of no held keys, and while a program holds the pointer, as in menus and drags, the
// runtime can't move the server's pointer along. Each line of commands goes into a file that a shell follows.
class Hands {
public:
    Hands() : commands(std::fopen("C:\\input.txt", "wb")) {
        RunBeneath("tail -f $WINEPREFIX/drive_c/input.txt | while read -r line; do xdotool $line; done");
    }
    Hands(const Hands&) = delete;
    Hands& operator=(const Hands&) = delete;
    ~Hands() { std::fclose(commands); }

    void Do(const std::string& line) {
        std::fputs((line + "\n").c_str(), commands);
        std::fflush(commands);
    }

private:
    std::FILE* commands;
};

void Do(const std::string& line) {
    static Hands hands;
    hands.Do(line);
}

std::string MoveText(POINT to) {
    return "mousemove " + std::to_string(to.x - GetSystemMetrics(SM_XVIRTUALSCREEN)) + " " +
           std::to_string(to.y - GetSystemMetrics(SM_YVIRTUALSCREEN));
}

GUITHREADINFO ThreadOf(HWND window) {
    GUITHREADINFO info = {};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    return info;
}

// Where input would go now, for whoever wonders where it went.
std::string CursorText() {
    POINT cursor = {};
    GetCursorPos(&cursor);
    return "cursor at " + std::to_string(cursor.x) + "," + std::to_string(cursor.y) +
           (GetKeyState(VK_LBUTTON) < 0 ? " pressed" : " free") + " over " + Describe(WindowFromPoint(cursor)) +
           "\nforeground: " + Describe(GetForegroundWindow());
}

testing::AssertionResult LoopBecomes(HWND window, DWORD flag, bool wanted) {
    if (Eventually([&] { return ((ThreadOf(window).flags & flag) != 0) == wanted; }))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "the thread's state is " << ThreadOf(window).flags << ", should "
                                       << (wanted ? "have " : "not have ") << flag << ": " << Describe(window) << "\n"
                                       << CursorText();
}

}  // namespace

void MoveMouse(POINT to) {
    Do(MoveText(to));
    POINT cursor = {};
    EXPECT_TRUE(Eventually([&] { return GetCursorPos(&cursor) && cursor.x == to.x && cursor.y == to.y; }))
        << "the cursor is at " << cursor.x << "," << cursor.y << ", not at " << to.x << "," << to.y;
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
    Do(MoveText({at.x + aside, at.y}) + " click 1");
}

void DoubleClick(POINT at) {
    Do(MoveText(at) + " click --repeat 2 --delay 40 1");
}

void RightClick(POINT at) {
    Do(MoveText(at) + " click 3");
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
    return testing::AssertionFailure() << "not in the foreground: " << Describe(window) << "\n" << CursorText();
}

testing::AssertionResult EntersLoop(HWND window, DWORD flag) {
    return LoopBecomes(window, flag, true);
}
testing::AssertionResult LeavesLoop(HWND window, DWORD flag) {
    return LoopBecomes(window, flag, false);
}

testing::AssertionResult OpenSystemMenu(HWND window) {
    if (const testing::AssertionResult inFront = BringToFront(window); !inFront) return inFront;
    TapKey("alt+space");
    return EntersLoop(window, GUI_INMENUMODE);
}

testing::AssertionResult CloseMenus(HWND window) {
    // One for each menu that is open, and one for the bar.
    TapKey("Escape Escape Escape Escape");
    return LeavesLoop(window, GUI_INMENUMODE);
}

POINT CaptionOf(HWND window) {
    const RECT place = PlaceOf(window);
    return {(place.left + place.right) / 2,
            place.top + GetSystemMetrics(SM_CYSIZEFRAME) + GetSystemMetrics(SM_CYCAPTION) / 2};
}

POINT MaximiseButtonOf(HWND window) {
    // The second of the buttons that stand at the right end of the caption.
    return {PlaceOf(window).right - GetSystemMetrics(SM_CXSIZEFRAME) - GetSystemMetrics(SM_CXSIZE) * 3 / 2,
            CaptionOf(window).y};
}

RECT PlaceOf(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    return place;
}

testing::AssertionResult BecomesPlaced(HWND window, const RECT& wanted) {
    const auto isThere = [&] {
        const RECT place = PlaceOf(window);
        return EqualRect(&place, &wanted) != FALSE;
    };
    if (Eventually(isThere)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "should stand at " << wanted.left << "," << wanted.top << " to "
                                       << wanted.right << "," << wanted.bottom << ": " << Describe(window) << "\n"
                                       << CursorText();
}

Drag::Drag(HWND draggedWindow, POINT gripPoint) : window(draggedWindow), grip(gripPoint) {
    EXPECT_TRUE(BringToFront(window));
    MoveMouse(grip);
    PressMouse();
    const testing::AssertionResult entered = EntersLoop(window, GUI_INMOVESIZE);
    began = entered;
    EXPECT_TRUE(entered);
}

Drag::~Drag() {
    if (held) Drop();
}

void Drag::To(int dx, int dy) {
    offset = {dx, dy};
    MoveMouse({grip.x + dx, grip.y + dy});
}

void Drag::SlowlyTo(int dx, int dy) {
    constexpr int Step = 32;
    const POINT from = offset;
    const int steps = (std::max(std::abs(dx - from.x), std::abs(dy - from.y)) + Step - 1) / Step;
    for (int step = 1; step <= steps; ++step) {
        To(from.x + (dx - from.x) * step / steps, from.y + (dy - from.y) * step / steps);
        Ask(window, WM_NULL);
        Sleep(PollPeriod);
    }
}

void Drag::Drop() {
    held = false;
    ReleaseMouse();
    EXPECT_TRUE(!IsWindow(window) || LeavesLoop(window, GUI_INMOVESIZE));
}

}  // namespace halyard::test
