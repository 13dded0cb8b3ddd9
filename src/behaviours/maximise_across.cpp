#include "behaviours/maximise_across.h"

#include "behaviours/geometry.h"
#include "behaviours/placement.h"
#include "behaviours/window_position.h"
#include "displays/displays.h"
#include "hook/behaviours.h"
#include "hook/tracked_window.h"
#include "process/profile.h"
#include "process/window_long.h"
#include "settings/choices.h"
#include "settings/settings.h"

namespace halyard {

namespace {

constexpr WPARAM CommandMask = 0xFFF0;  // the low bits are the system's own

bool WantsAllDisplays() noexcept {
    const DWORD mode = settings.CtrlMax();
    return mode == SpansAlways || (mode == SpansWithControlKey && GetKeyState(VK_CONTROL) < 0);
}

void SpreadFromPlacement(TrackedWindow& tracked) noexcept {
    WINDOWPLACEMENT placement = PlacementOf(tracked.window);
    if (placement.showCmd == SW_SHOWNORMAL) {
        // So that the placement holds where the window really is.
        GetWindowRect(tracked.window, &placement.rcNormalPosition);
        SetPlacement(tracked.window, placement);
    }
    if (placement.showCmd == SW_SHOWMINIMIZED) ShowWindow(tracked.window, SW_RESTORE);
    MaximiseAcross(tracked, &placement.rcNormalPosition);
}

// Only the place is set: the command itself goes on to the program and the system, which restore the window there.
void PrepareRestore(TrackedWindow& tracked) noexcept {
    tracked.maximisedAcross = false;
    WINDOWPLACEMENT placement = PlacementOf(tracked.window);
    // The display that it stood on may have gone meanwhile.
    placement.rcNormalPosition = WithinReach(tracked.savedNormalRect);
    SetPlacement(tracked.window, placement);
}

// A window that was minimised while it spanned spans again. Returns whether that was all there is to do.
bool Restore(TrackedWindow& tracked) noexcept {
    if (!IsIconic(tracked.window)) {
        PrepareRestore(tracked);
        return false;
    }
    const RECT normal = tracked.savedNormalRect;
    ShowWindow(tracked.window, SW_RESTORE);
    MaximiseAcross(tracked, &normal);
    return true;
}

void SetItemState(HMENU menu, UINT command, UINT state) noexcept {
    MENUITEMINFOA info = {};
    info.cbSize = sizeof(info);
    info.fMask = MIIM_STATE;
    info.fState = state;
    SetMenuItemInfoA(menu, command, FALSE, &info);
}

}  // namespace

void MaximiseAcross(TrackedWindow& tracked, const RECT* normal) noexcept {
    HWND window = tracked.window;
    tracked.maximisedAcross = true;
    tracked.savedNormalRect = normal ? *normal : PlacementOf(window).rcNormalPosition;
    const DWORD style = ReadWindowLong(window, GWL_STYLE);
    const RECT rect = SpanningRect(WorkBounds());
    // Without WM_WINDOWPOSCHANGING the program can't limit the size.
    SetWindowPos(window, nullptr, rect.left, rect.top, WidthOf(rect), HeightOf(rect),
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED | SWP_NOSENDCHANGING);
    const DWORD spanning = profile.program.acad ? 0 : WS_MAXIMIZE;
    WriteWindowLong(window, GWL_STYLE, (style & ~(WS_MINIMIZE | WS_MAXIMIZE)) | spanning);
    SendMessageA(window, WM_NCPAINT, 1, 0);
}

bool ChangesSpanning(const TrackedWindow& tracked, WPARAM command) noexcept {
    switch (command & CommandMask) {
    // A child window maximises within its parent.
    case SC_MAXIMIZE: return WantsAllDisplays() && !(ReadWindowLong(tracked.window, GWL_STYLE) & WS_CHILD);
    case SC_RESTORE: return tracked.maximisedAcross;
    default: return false;
    }
}

bool TakeMaximiseCommand(TrackedWindow& tracked, WPARAM command) noexcept {
    if (!ChangesSpanning(tracked, command)) return false;
    if ((command & CommandMask) == SC_RESTORE) return Restore(tracked);
    if (!tracked.maximisedAcross) SpreadFromPlacement(tracked);
    return true;
}

void MarkSpanningMenu(HMENU systemMenu) noexcept {
    SetItemState(systemMenu, SC_RESTORE, MFS_DEFAULT);
    SetItemState(systemMenu, SC_MOVE, MFS_GRAYED);
    SetItemState(systemMenu, SC_SIZE, MFS_GRAYED);
    SetItemState(systemMenu, SC_MAXIMIZE, MFS_GRAYED);
}

void RefreshAfterDisplayChange(TrackedWindow& tracked) noexcept {
    RefreshDisplays();
    HWND window = tracked.window;
    // Spreading a minimised window would bring it up.
    if (!tracked.maximisedAcross || IsIconic(window)) return;
    // The platform doesn't know where a spanning window goes back to; what was kept stays.
    const RECT normal = tracked.savedNormalRect;
    WriteWindowLong(window, GWL_STYLE, ReadWindowLong(window, GWL_STYLE) & ~WS_MAXIMIZE);
    MaximiseAcross(tracked, &normal);
}

}  // namespace halyard
