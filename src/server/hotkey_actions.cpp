#include "server/hotkey_actions.h"

#include "behaviours/window_position.h"
#include "config/config_dialog.h"
#include "desktops/desktop_switch.h"
#include "desktops/window_desktop_map.h"
#include "hotkeys/find_cursor.h"
#include "hotkeys/hotkeys.h"
#include "settings/settings.h"

namespace halyard {

namespace {

void SwitchDesktop(unsigned action) noexcept {
    if (action == DefaultDesktopAction) Activate(DefaultDesktopId);
    if (action == NextDesktopAction) ActivateNext();
    if (action == PreviousDesktopAction) ActivatePrevious();
    if (action & DesktopActionBit) Activate(action ^ DesktopActionBit);
    RefreshPages();
}

// Changing the order of a hung program's window would hang the server with it.
void ToggleForeground() noexcept {
    constexpr UINT Patience = 500;  // ms
    HWND window = GetForegroundWindow();
    DWORD_PTR answer = 0;
    if (window && SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, Patience, &answer))
        ToggleTopmost(window);
}

// The window in front, or the owner that it goes with; null where neither is the system's business.
HWND ManagedForeground() noexcept {
    HWND window = GetForegroundWindow();
    while (window && windowDesktopMap.DesktopOfWindow(window) == NoDesktop)
        window = GetWindow(window, GW_OWNER);
    return window;
}

// Its program does it, as with a command of its system menu.
void MoveForeground(unsigned action, bool follow) noexcept {
    HWND window = ManagedForeground();
    if (!window) return;
    UINT command = follow ? FollowToDesktopCommand : MoveToDesktopCommand;
    if (IsMoveTo(action, MoveToDisplayActions)) command = MoveToDisplayCommand;
    PostMessageA(window, WM_SYSCOMMAND, command, static_cast<LPARAM>(action & ~MoveActionMask));
}

void RunHotkeyAction(unsigned action, bool follow) noexcept {
    if (IsMoveTo(action, MoveToDesktopActions) || IsMoveTo(action, MoveToDisplayActions)) {
        MoveForeground(action, follow);
        return;
    }
    if (settings.MultiDesk()) SwitchDesktop(action);
    if (action == ToggleTopmostAction) ToggleForeground();
    if (action == OpenDialogAction) OpenConfigDialog(0);
}

}  // namespace

void OnHotkeyPressed(HWND serverWindow, WPARAM atom) noexcept {
    for (const auto& entry : hotkeyList) {
        const bool follow = entry.value->followAtom && entry.value->followAtom == atom;
        if (!follow && (!entry.value->atom || entry.value->atom != atom)) continue;
        // The list may be another one when the action is over.
        const unsigned action = entry.key;
        if (action == FindCursorAction && StartFindCursor())
            SetTimer(serverWindow, FindCursorTimer, FindCursorPeriod, nullptr);
        RunHotkeyAction(action, follow);
        return;
    }
}

}  // namespace halyard
