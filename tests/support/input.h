// The user's hands: real input for whatever program is under the cursor or in the foreground. What it brings about is
// to be waited for.
#pragma once

#include "support/windows_seen.h"

namespace halyard::test {

// Screen coordinates.
void MoveMouse(POINT to);
void PressMouse();
void ReleaseMouse();
void Click(POINT at);  // or a few pixels beside it
void DoubleClick(POINT at);
void RightClick(POINT at);

// By the X server's names: "Escape", "alt+space".
void TapKey(const std::string& key);

struct HeldKey {
    explicit HeldKey(const std::string& heldKey);
    HeldKey(const HeldKey&) = delete;
    ~HeldKey();
    const std::string key;
};

// Waits until the window's program has it in the foreground and active.
testing::AssertionResult BringToFront(HWND window);

// Waits until the window's thread is, or isn't, in a loop of that kind: GUI_INMOVESIZE, GUI_INMENUMODE.
testing::AssertionResult EntersLoop(HWND window, DWORD flag);
testing::AssertionResult LeavesLoop(HWND window, DWORD flag);

// Opens the window's system menu by keyboard.
testing::AssertionResult OpenSystemMenu(HWND window);

// Places on the frame of a window of the common style.
POINT CaptionOf(HWND window);
POINT MiddleOf(HWND window);

// Waits until the window stands at this place.
testing::AssertionResult BecomesPlaced(HWND window, const RECT& wanted);

// A window taken at a point, for as long as this lives.
class Drag {
public:
    // Ends when the window's thread is in its loop.
    Drag(HWND draggedWindow, POINT gripPoint);
    explicit Drag(HWND draggedWindow) : Drag(draggedWindow, CaptionOf(draggedWindow)) {}
    Drag(const Drag&) = delete;
    ~Drag() { Drop(); }

    // Moves the cursor to that distance from where it took the window: at once, or in small steps.
    void To(int dx, int dy);
    void SlowlyTo(int dx, int dy);
    void Drop();
    bool Began() const { return began; }

private:
    const HWND window;
    const POINT grip;
    POINT offset = {0, 0};
    bool began = false, held = true;
};

}  // namespace halyard::test
