#include "desktops/window_calls.h"

#include "desktops/desktop_list.h"
#include "desktops/desktop_switch.h"
#include "desktops/hidden_mark.h"
#include "desktops/window_desktop_map.h"
#include "desktops/window_snapshot.h"
#include "desktops/window_switch.h"
#include "process/server_call.h"
#include "process/shared_section.h"
#include "settings/settings.h"

namespace halyard {

namespace {

// Values of the setting; any other means that the desktop of the window becomes current.
enum Answer : DWORD { BringWindow = 1, LeaveHidden = 2 };

bool sessionEnding = false;

// `NoDesktop` for a window that is to be seen now.
DesktopId DesktopElsewhere(HWND window) noexcept {
    const SeenRow chain = SeeWithOwners(window);
    const DesktopId desktop = chain.Count() ? DesktopOf(chain, chain[0]) : NoDesktop;
    return desktop == AllDesktopsId || desktop == CurrentDesktopId() ? NoDesktop : desktop;
}

void HideAgain(HWND window, DesktopId desktop) noexcept {
    if (IsWindowVisible(window) && HideWithMark(window, desktop))
        windowDesktopMap.NoteAsked(HandleBits(window), Request::Hide);
}

void SetKeyboardTimer() noexcept {
    SetTimer(ServerWindow(), KeyboardTimer, KeyboardPeriod, nullptr);
}

void AnswerCall(HWND window, DesktopId desktop) noexcept {
    switch (settings.HiddenActivation()) {
    case BringWindow: SendWindowTo(window, CurrentDesktopId(), false); break;
    case LeaveHidden:
        HideAgain(window, desktop);
        SetKeyboardTimer();
        break;
    default: Activate(desktop);
    }
}

}  // namespace

bool SendWindowTo(HWND window, DesktopId desktop, bool follow) noexcept {
    bool sent = false;
    RunOnServerThread([&] {
        sent = desktopList.Has(desktop) && RecordGroup(window, desktop);
        if (!sent) return;
        if (follow) Activate(desktop);
        // Also where that desktop is current already.
        BringInLine();
    });
    return sent;
}

void OnWindowShown(HWND window, bool shown) noexcept {
    NoteFollowed(window, shown);
    if (!shown) {
        // The platform may still be about to activate another window.
        SetKeyboardTimer();
        return;
    }
    const DesktopId desktop = DesktopElsewhere(window);
    if (sessionEnding) return;
    // A window that is still to follow the last request may tell of an earlier one.
    if (desktop == NoDesktop || windowDesktopMap.Asked(HandleBits(window)) == Request::Hide) return;
    if (GetForegroundWindow() == window)
        AnswerCall(window, desktop);
    else
        HideAgain(window, desktop);
}

void OnWindowCalls(HWND window) noexcept {
    const DesktopId desktop = DesktopElsewhere(window);
    if (sessionEnding || desktop == NoDesktop || GetForegroundWindow() != window) return;
    if (windowDesktopMap.Asked(HandleBits(window)) != Request::Hide) AnswerCall(window, desktop);
}

bool GoToDesktopOf(HWND window) noexcept {
    const DesktopId desktop = DesktopElsewhere(window);
    if (desktop == NoDesktop) return false;
    PreferFront(desktop, window);
    Activate(desktop);
    return true;
}

void ShowWindowsForSessionEnd() noexcept {
    sessionEnding = true;
    ShowMarkedWindows();
}

void CallOffSessionEnd() noexcept {
    if (!sessionEnding) return;
    sessionEnding = false;
    BringInLine();
}

}  // namespace halyard
