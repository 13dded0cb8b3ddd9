#include "taskbars/app_bar.h"

#include "process/protocol.h"
#include "process/shared_section.h"

namespace halyard {

namespace {

constexpr UINT ShellTimeout = 200;    // ms that a shell has to show that it answers
constexpr DWORD SilencePeriod = 500;  // ms for which a shell that let that time pass isn't asked again

struct Silence {
    bool noted = false;
    DWORD since = 0;
};

Silence silence;
RECT primaryTaskbarRect = {};

HWND TrayWindow() noexcept {
    return FindWindowA("Shell_TrayWnd", nullptr);
}

// SHAppBarMessage itself waits as long as the shell hangs, so the shell must first show that it answers.
bool ShellAnswers() noexcept {
    HWND tray = TrayWindow();
    if (!tray) return true;
    if (silence.noted && GetTickCount() - silence.since < SilencePeriod) return false;
    DWORD_PTR answer = 0;
    silence.noted = !SendMessageTimeoutA(tray, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, ShellTimeout, &answer);
    silence.since = GetTickCount();
    return !silence.noted;
}

// False: the shell doesn't answer, or refuses.
bool Tell(const SecondaryTaskbar& bar, DWORD message, const RECT& place = {}) noexcept {
    APPBARDATA data = {};
    data.cbSize = sizeof(data);
    data.hWnd = bar.window;
    data.uCallbackMessage = AppBarCallback;
    data.uEdge = bar.shape.edge;
    data.rc = place;
    return ShellAnswers() && SHAppBarMessage(message, &data);
}

// True: the shell now knows what it should of the bar.
bool TryToTell(SecondaryTaskbar& bar, const RECT& place) noexcept {
    if (bar.autohide) {
        if (bar.registered && !ShellAnswers()) return false;
        if (bar.registered) Tell(bar, ABM_REMOVE);
        bar.registered = false;
        return true;
    }
    if (!bar.registered) bar.registered = Tell(bar, ABM_NEW);
    if (!bar.registered || !ShellAnswers()) return false;
    // The shell writes back where it would rather have the bar. It would stack bars of one edge, but each of these has
    // its display for itself, and stands as computed.
    Tell(bar, ABM_SETPOS, place);
    return true;
}

}  // namespace

void UpdateAppBar(SecondaryTaskbar& bar, const RECT& place) noexcept {
    // Without a shell there is nothing to try: one that starts later announces itself.
    if (TryToTell(bar, place) || !TrayWindow())
        KillTimer(bar.window, AppBarTimer);
    else
        SetTimer(bar.window, AppBarTimer, AppBarRetryPeriod, nullptr);
}

void RetryAppBar(SecondaryTaskbar& bar) noexcept {
    if (bar.busy) return;
    const bool wasRegistered = bar.registered;
    UpdateAppBar(bar, bar.windowRect);
    if (wasRegistered || !bar.registered) return;
    // The shell's own bar may have moved without a notice to this one.
    ReadPrimaryTaskbarRect();
    PostMessageA(ServerWindow(), HM_REFRESH_EXTRAS, 0, 0);
}

void RegisterAppBarAnew(SecondaryTaskbar& bar) noexcept {
    // A shell that does remember the bar wouldn't register it twice.
    if (bar.registered) Tell(bar, ABM_REMOVE);
    bar.registered = false;
    UpdateAppBar(bar, bar.windowRect);
}

void ReleaseAppBar(SecondaryTaskbar& bar) noexcept {
    if (bar.registered) Tell(bar, ABM_REMOVE);
    bar.registered = false;
}

void ReadPrimaryTaskbarRect() noexcept {
    APPBARDATA data = {};
    data.cbSize = sizeof(data);
    if (ShellAnswers()) SHAppBarMessage(ABM_GETTASKBARPOS, &data);
    primaryTaskbarRect = data.rc;
    // Not every shell's answer follows its taskbar.
    RECT seen = {};
    RECT common = {};
    HWND tray = TrayWindow();
    if (tray && IsWindowVisible(tray) && GetWindowRect(tray, &seen) && !IntersectRect(&common, &seen, &data.rc))
        primaryTaskbarRect = seen;
}

const RECT& PrimaryTaskbarRect() noexcept {
    return primaryTaskbarRect;
}

}  // namespace halyard
