// Dialogs where the user wants them.
#include "behaviours/borrowed_proc.h"
#include "behaviours/window_position.h"
#include "hook/behaviours.h"
#include "process/profile.h"
#include "process/window_long.h"
#include "settings/settings.h"

namespace halyard {

namespace {

enum DialogMode : DWORD {
    OnApplicationWindow = 1,
    OnApplicationDisplay = 2,
    OnNumberedDisplay = 3,
    OnCursorDisplay = 4
};

// Where the dialog's own procedure is kept while ours is lent to it: with the window, since two threads may place
// dialogs at one moment.
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

// The shell's dialogs don't repaint by themselves when they are moved on their way up.
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
    // A nested activation while the procedure is lent.
    if (HasProc(dialog, PlacementWindowProc) || GetPropA(dialog, OldProcProperty)) return;
    const WNDPROC old = SetWindowProc(dialog, PlacementWindowProc);
    SetPropA(dialog, OldProcProperty, reinterpret_cast<HANDLE>(old));
    RECT rect = {};
    GetWindowRect(dialog, &rect);
    // To where it is already: the call is there for the message that it brings about.
    SetWindowPos(dialog, nullptr, rect.left, rect.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    SetWindowProc(dialog, old);
    RemovePropA(dialog, OldProcProperty);
    // One of them doesn't repaint by itself; the other is moved in the middle of its first painting, whose rest is then
    // lost.
    if (profile.program.winproj || profile.program.corelpp) InvalidateRect(dialog, nullptr, TRUE);
}

}  // namespace halyard
