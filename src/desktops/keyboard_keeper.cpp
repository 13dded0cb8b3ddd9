#include "desktops/keyboard_keeper.h"

#include "common/window_class.h"
#include "process/profile.h"

namespace halyard {

namespace {

enum KeeperMessage : UINT {
    KM_WAKE = WM_APP,  // posted by `TakeKeyboard` to itself, and taken out of the queue at once
    KM_LOWER,          // posted when the keeper isn't needed any more; wParam: the number of the raise that is over
};

HWND keeper = nullptr;
bool raised = false;  // a switch needs it
unsigned turn = 0;    // how often it has been raised

void OnActivate(HWND window, bool active) noexcept {
    if (!active && !raised) PostMessageA(window, KM_LOWER, turn, 0);
}

void OnLower(unsigned over) noexcept {
    if (over == turn) LowerKeeper();
}

LRESULT CALLBACK KeeperWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case KM_LOWER: OnLower(static_cast<unsigned>(wParam)); return 0;
    case WM_ACTIVATE: OnActivate(window, LOWORD(wParam) != WA_INACTIVE); break;
    case WM_CLOSE:
    case WM_SYSCOMMAND: return 0;  // it can't be closed, moved or minimised from the keyboard
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

WindowClass keeperClass("TevralHalyardKeeperWndClass", KeeperWndProc);

HWND Keeper() noexcept {
    if (keeper) return keeper;
    keeper = keeperClass.Create(GetModuleHandleA(nullptr), WS_EX_TOOLWINDOW | WS_EX_TOPMOST, WS_POPUP, {0, 0, 1, 1});
    // Visible to the platform, with no pixel for the user. The platform owns the region from then on.
    if (keeper) SetWindowRgn(keeper, CreateRectRgn(0, 0, 0, 0), FALSE);
    return keeper;
}

}  // namespace

void RaiseKeeper() noexcept {
    raised = true;
    ++turn;
    // There is nothing to draw, and each message that the window gets costs time on the way of a switch.
    SetWindowPos(Keeper(), HWND_TOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW | SWP_NOREDRAW | SWP_NOSENDCHANGING);
}

void TakeKeyboard() noexcept {
    if (!raised) RaiseKeeper();
    if (KeeperHasKeyboard()) return;
    // X ignores a request for the focus that is older than the last change of it, and Wine gives the request the time
    // of the thread's last message. So there must be one now.
    MSG message;
    PostMessageA(keeper, KM_WAKE, 0, 0);
    PeekMessageA(&message, keeper, KM_WAKE, KM_WAKE, PM_REMOVE);
    SetForegroundWindow(keeper);
    // Wine holds the request back until the thread looks for events. It must reach X before that of the next window,
    // which comes from another program and may carry the same time.
    PeekMessageA(&message, keeper, KM_WAKE, KM_WAKE, PM_NOREMOVE);
}

void LowerKeeper() noexcept {
    raised = false;
    if (!keeper || KeeperHasKeyboard()) return;
    // X may have refused the focus to the window that has been given the foreground, since its program's clock is a
    // little late. The keys come to it by the keeper then.
    if (profile.focusNeedsWindow)
        SetWindowPos(keeper, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOSENDCHANGING);
    else
        ShowWindow(keeper, SW_HIDE);
}

void LowerKeeperSoon(unsigned over) noexcept {
    PostMessageA(keeper, KM_LOWER, over, 0);
}

unsigned KeeperTurn() noexcept {
    return turn;
}

bool KeeperHasKeyboard() noexcept {
    return keeper && GetForegroundWindow() == keeper;
}

void DestroyKeeper() noexcept {
    if (!keeper) return;
    DestroyWindow(keeper);
    keeperClass.Unregister();
    keeper = nullptr;
}

}  // namespace halyard
