// Dialogs where the user wants them. hook/behaviours.h declares what the hooks call of it, and nobody else calls it.
#include "behaviours/borrowed_proc.h"
#include "behaviours/window_position.h"
#include "hook/behaviours.h"
#include "hook/tracked_window.h"
#include "process/profile.h"
#include "process/window_long.h"
#include "settings/choices.h"
#include "settings/settings.h"

namespace halyard {

namespace {

// The window property that keeps the dialog's own procedure while ours stands in its place. It isn't a variable, since
// two threads may place dialogs at the same moment.
constexpr char OldProcProperty[] = "TevralHalyardDialogProc";

void CentreOnCursorDisplay(HWND dialog, WINDOWPOS* move) noexcept {
    POINT cursor = {};
    GetCursorPos(&cursor);
    const RECT spot = {cursor.x, cursor.y, cursor.x, cursor.y};
    if (profile.monitorFromRect)
        CentreOnDisplay(dialog, profile.monitorFromRect(&spot, MONITOR_DEFAULTTONEAREST), move);
}

void Centre(HWND dialog, WINDOWPOS* move) noexcept {
    switch (settings.DialogControl()) {
    case OnApplicationWindow:
        if (HasVisibleParent(dialog))
            CentreOnParent(dialog, move);
        else
            CentreOnOwnDisplay(dialog, move);
        break;
    case OnApplicationDisplay: CentreOnOwnDisplay(dialog, move); break;
    case OnNumberedDisplay:
        if (settings.DialogMonitor() > 0) CentreOnNumberedDisplay(dialog, settings.DialogMonitor(), move);
        break;
    case OnCursorDisplay: CentreOnCursorDisplay(dialog, move); break;
    }
}

// A dialog of the shell that is moved before it shows doesn't repaint by itself.
void RepaintAtOnce(HWND dialog) noexcept {
    InvalidateRect(dialog, nullptr, TRUE);
    SendMessageA(dialog, WM_PAINT, 0, 0);
    PostMessageA(dialog, WM_NCPAINT, 1, 0);
}

LRESULT OnPosChanging(HWND dialog, WINDOWPOS* move) noexcept {
    Centre(dialog, move);
    if (profile.program.explorer) RepaintAtOnce(dialog);
    return 0;
}

LRESULT CALLBACK PlacementWindowProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_WINDOWPOSCHANGING) return OnPosChanging(dialog, reinterpret_cast<WINDOWPOS*>(lParam));
    const auto old = reinterpret_cast<WNDPROC>(GetPropA(dialog, OldProcProperty));
    return CallOldProc(dialog, old, message, wParam, lParam);
}

}  // namespace

void PlaceDialog(TrackedWindow& tracked) noexcept {
    HWND dialog = tracked.window;
    // The program activated the dialog while it was being placed.
    if (HasProc(dialog, PlacementWindowProc) || GetPropA(dialog, OldProcProperty)) return;
    const WNDPROC old = SetWindowProc(dialog, PlacementWindowProc);
    SetPropA(dialog, OldProcProperty, reinterpret_cast<HANDLE>(old));
    RECT rect = {};
    GetWindowRect(dialog, &rect);
    // The window is asked to go where it is already: we only want the WM_WINDOWPOSCHANGING that comes of it.
    SetWindowPos(dialog, nullptr, rect.left, rect.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    SetWindowProc(dialog, old);
    RemovePropA(dialog, OldProcProperty);
    // The first doesn't repaint a moved dialog. The second is moved in the middle of its first painting, and the rest
    // of that painting is lost.
    if (profile.program.winproj || profile.program.corelpp) InvalidateRect(dialog, nullptr, TRUE);
}

}  // namespace halyard
