#include "taskbars/app_bar.h"

namespace halyard {

namespace {

constexpr UINT ShellTimeout = 1000;    // ms
constexpr DWORD SilencePeriod = 5000;  // ms for which a shell that let that time pass isn't asked again

struct Silence {
    bool noted = false;
    DWORD since = 0;
};

Silence silence;

bool ShellAnswers() noexcept {
    HWND tray = FindWindowA("Shell_TrayWnd", nullptr);
    if (!tray) return true;
    if (silence.noted && GetTickCount() - silence.since < SilencePeriod) return false;
    DWORD_PTR answer = 0;
    silence.noted = !SendMessageTimeoutA(tray, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, ShellTimeout, &answer);
    silence.since = GetTickCount();
    return !silence.noted;
}

}  // namespace

void CallAppBar(DWORD message, APPBARDATA& data) noexcept {
    data.cbSize = sizeof(data);
    if (ShellAnswers()) SHAppBarMessage(message, &data);
}

}  // namespace halyard
