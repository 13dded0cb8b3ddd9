#include "behaviours/maximise_across.h"

#include "behaviours/geometry.h"
#include "behaviours/window_position.h"
#include "displays/displays.h"
#include "hook/behaviours.h"
#include "process/profile.h"
#include "process/window_long.h"
#include "settings/settings.h"

namespace halyard {

namespace {

constexpr WPARAM CommandMask = 0xFFF0;  // the low bits are the system's own
constexpr DWORD WithControlKey = 1;
constexpr DWORD Always = 2;

WINDOWPLACEMENT PlacementOf(HWND window) noexcept {
    WINDOWPLACEMENT placement = {};
    placement.length = sizeof(placement);
    GetWindowPlacement(window, &placement);
    return placement;
}

bool WantsAllDisplays() noexcept {
    const DWORD mode = settings.CtrlMax();
    return mode == Always || (mode == WithControlKey && GetKeyState(VK_CONTROL) < 0);
}

void SpreadFromPlacement(TrackedWindow& tracked) noexcept {
    WINDOWPLACEMENT placement = PlacementOf(tracked.window);
    if (placement.showCmd == SW_SHOWNORMAL) {
        // So that the placement holds where the window really is.
        GetWindowRect(tracked.window, &placement.rcNormalPosition);
        SetWindowPlacement(tracked.window, &placement);
    }
    if (placement.showCmd == SW_SHOWMINIMIZED) ShowWindow(tracked.window, SW_RESTORE);
    MaximiseAcross(tracked, &placement.rcNormalPosition);
}

// The command itself goes on to the program and the system, which find the normal rectangle in place.
void PrepareRestore(TrackedWindow& tracked) noexcept {
    tracked.maximisedAcross = false;
    WINDOWPLACEMENT placement = PlacementOf(tracked.window);
    // The display that it stood on may have gone meanwhile.
    placement.rcNormalPosition = WithinReach(tracked.savedNormalRect);
    SetWindowPlacement(tracked.window, &placement);
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
    // Without WM_WINDOWPOSCHANGING no limit of the window's own comes into play.
    SetWindowPos(window, nullptr, rect.left, rect.top, WidthOf(rect), HeightOf(rect),
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED | SWP_NOSENDCHANGING);
    const DWORD spanning = profile.program.acad ? 0 : WS_MAXIMIZE;
    WriteWindowLong(window, GWL_STYLE, (style & ~(WS_MINIMIZE | WS_MAXIMIZE)) | spanning);
    SendMessageA(window, WM_NCPAINT, 1, 0);
}

bool TakeMaximiseCommand(TrackedWindow& tracked, WPARAM command) noexcept {
    if ((command & CommandMask) == SC_MAXIMIZE && WantsAllDisplays()) {
        if (!tracked.maximisedAcross) SpreadFromPlacement(tracked);
        return true;
    }
    if ((command & CommandMask) == SC_RESTORE && tracked.maximisedAcross) PrepareRestore(tracked);
    return false;
}

void MarkSpanningMenu(HMENU systemMenu) noexcept {
    SetItemState(systemMenu, SC_RESTORE, MFS_DEFAULT);
    SetItemState(systemMenu, SC_MOVE, MFS_GRAYED);
    SetItemState(systemMenu, SC_SIZE, MFS_GRAYED);
    SetItemState(systemMenu, SC_MAXIMIZE, MFS_GRAYED);
}

void RefreshAfterDisplayChange(TrackedWindow& tracked) noexcept {
    RefreshDisplays();
    if (!tracked.maximisedAcross) return;
    HWND window = tracked.window;
    // A spanning window has no normal place of its own for the platform to tell: what was kept stays.
    const RECT normal = tracked.savedNormalRect;
    WriteWindowLong(window, GWL_STYLE, ReadWindowLong(window, GWL_STYLE) & ~WS_MAXIMIZE);
    MaximiseAcross(tracked, &normal);
}

}  // namespace halyard
