#include "behaviours/drag_loop.h"

#include "behaviours/borrowed_proc.h"
#include "behaviours/geometry.h"
#include "displays/displays.h"
#include "hook/behaviours.h"
#include "hook/tracked_window.h"
#include "process/profile.h"
#include "process/window_long.h"
#include "settings/settings.h"

namespace halyard {

DragLoop dragLoop;

namespace {

volatile LONG watching = 0;  // 1 while a thread's loop is watched

void StopWatching() noexcept {
    dragLoop.window = nullptr;
    dragLoop.oldWindowProc = nullptr;
    InterlockedExchange(&watching, 0);
}

LRESULT OnExitSizeMove(HWND window, WPARAM wParam, LPARAM lParam) noexcept {
    EndTransparency(dragLoop.window, dragLoop.transparency);
    const WNDPROC old = dragLoop.oldWindowProc;
    const LRESULT result = CallOldProc(window, old, WM_EXITSIZEMOVE, wParam, lParam);
    SetWindowProc(window, old);
    StopWatching();
    return result;
}

// The window is destroyed before its loop has ended: its look needs no restoring, and the next loop can be watched.
LRESULT OnNcDestroy(HWND window, WPARAM wParam, LPARAM lParam) noexcept {
    const WNDPROC old = dragLoop.oldWindowProc;
    dragLoop.transparency = {};
    SetWindowProc(window, old);
    StopWatching();
    return CallOldProc(window, old, WM_NCDESTROY, wParam, lParam);
}

// True: `proposed` was docked, and the program doesn't see the message. Wine counts its next proposal from where the
// last step put the window, so that after a docked step its proposals are off: from then on our own count replaces
// them.
bool Dock(RECT& proposed) noexcept {
    if (!settings.EffectiveAutodock()) return false;
    POINT cursor = dragLoop.cursor;
    GetCursorPos(&cursor);
    dragLoop.dragRect = Followed(dragLoop.dragRect, dragLoop.cursor, cursor, proposed);
    dragLoop.cursor = cursor;
    RECT docked = dragLoop.dragRect;
    const bool changed = DockRectToDisplay(docked);
    dragLoop.hasDocked |= changed;
    if (dragLoop.hasDocked) proposed = docked;
    return changed;
}

}  // namespace

bool DockRectToDisplay(RECT& rect) noexcept {
    if (!profile.monitorFromRect) return false;
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    return GetMonitorInfoA(profile.monitorFromRect(&rect, MONITOR_DEFAULTTONEAREST), &info) &&
           DockRect(rect, info.rcMonitor, WorkBounds());
}

void BeginDragLoop(TrackedWindow& tracked) noexcept {
    if (!settings.EffectiveAutodock() && !settings.DragTrans()) return;
    // The windows of a thread that ends go without a message, so that nothing has ended their watch.
    const bool orphaned = dragLoop.window && !IsWindow(dragLoop.window);
    if (!orphaned && InterlockedCompareExchange(&watching, 1, 0) != 0) return;
    dragLoop.transparency = {};
    dragLoop.hasDocked = false;
    GetWindowRect(tracked.window, &dragLoop.dragRect);
    GetCursorPos(&dragLoop.cursor);
    dragLoop.window = tracked.window;
    dragLoop.oldWindowProc = SetWindowProc(tracked.window, DragWindowProc);
    // The window may have gone already.
    if (!dragLoop.oldWindowProc) StopWatching();
}

LRESULT CALLBACK DragWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (window != dragLoop.window) return CallOldProc(window, nullptr, message, wParam, lParam);
    switch (message) {
    case WM_EXITSIZEMOVE: return OnExitSizeMove(window, wParam, lParam);
    case WM_NCDESTROY: return OnNcDestroy(window, wParam, lParam);
    case WM_MOVING:
        BeginTransparency(window, dragLoop.transparency);
        if (Dock(*reinterpret_cast<RECT*>(lParam))) return 1;
        break;
    }
    return CallOldProc(window, dragLoop.oldWindowProc, message, wParam, lParam);
}

void EndDragLoop() noexcept {
    if (!dragLoop.window) return;
    EndTransparency(dragLoop.window, dragLoop.transparency);
    SetWindowProc(dragLoop.window, dragLoop.oldWindowProc);
    StopWatching();
}

}  // namespace halyard
