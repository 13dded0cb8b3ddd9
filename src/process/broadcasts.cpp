#include "process/broadcasts.h"

#include "process/profile.h"

namespace halyard {

void WakeAllThreads() noexcept {
    DWORD_PTR answer = 0;
    SendMessageTimeoutA(HWND_BROADCAST, WM_NULL, 0, 0, SMTO_BLOCK | SMTO_ABORTIFHUNG, BroadcastTimeout, &answer);
}

void BroadcastRestart(bool on) noexcept {
    WakeAllThreads();
    PostMessageA(HWND_BROADCAST, profile.restartMessage, 0, on ? 1 : 0);
}

void BroadcastSettings(SettingKind kind) noexcept {
    PostMessageA(HWND_BROADCAST, profile.settingMessage, static_cast<WPARAM>(kind), 0);
    WakeAllThreads();
}

}  // namespace halyard
