// What a process knows of one window that its hooks have seen.
#pragma once

#include "process/protocol.h"

namespace halyard {

// One per window that a hook has looked at, child windows included. Belongs to the `ThreadWindows` of the window's
// thread and is used on that thread only. Freeing it touches nothing but its own memory.
struct TrackedWindow {
    explicit TrackedWindow(HWND trackedWindow) noexcept;

    HWND window;
    bool classified = false;       // the two flags below are valid
    bool isManaged = false;        // gets the menu extension and is reported to the server
    bool isDialog = false;         // is placed as a dialog
    bool placed = true;            // false only between WM_CREATE and the moment in which the window comes into sight
    int lastHitTest = 0;           // result of the last WM_NCHITTEST, 0 once consumed
    bool maximisedAcross = false;  // spans all displays
    HMENU submenu = nullptr;       // the extension on the window's system menu, which owns it
    bool extensionOpen = false;    // the menu that opened last is the extension's
    RECT savedNormalRect = {};     // screen coordinates; valid while `maximisedAcross`
    bool wishes = false;           // its program asked for attention while it was hidden, and hasn't had it yet
    DesktopId desktopId;           // `AllDesktopsId` in the server process, else the current desktop at first sight
    TrackedWindow* nextRetired = nullptr;  // used by `ThreadWindows` alone

    // Tests the window anew, and puts the menu extension on or takes it off accordingly.
    void Classify() noexcept;

    // Gives the window the desktop of one that has just been met.
    void ForgetDesktop() noexcept;

    // Classify first if that hasn't been done.
    bool IsManaged() noexcept;
    bool IsDialog() noexcept;

    // Posts the window's arrival or departure to the server. Nothing for an unmanaged window.
    void NotifyServer(bool attach) noexcept;

    // Tells the server of the desktop that the user chose, and waits until the window is hidden or shown accordingly.
    // With `follow` that desktop becomes current.
    void SendDesktopChoice(bool follow) noexcept;
};

}  // namespace halyard
