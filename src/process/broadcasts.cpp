#include "process/broadcasts.h"

#include "process/profile.h"

namespace halyard {

void WakeAllThreads() noexcept {
    DWORD_PTR answer = 0;
    SendMessageTimeoutA(HWND_BROADCAST, WM_NULL, 0, 0, SMTO_BLOCK | SMTO_ABORTIFHUNG, BroadcastTimeout, &answer);
}

namespace {

void PostSettings(SettingKind kind) noexcept {
    PostMessageA(HWND_BROADCAST, profile.settingMessage, static_cast<WPARAM>(kind),
                 static_cast<LPARAM>(GetTickCount() | 1));
}

BOOL CALLBACK TellEnd(HWND window, LPARAM) {
    SendNotifyMessageA(window, profile.restartMessage, 0, 0);
    return TRUE;
}

// Sent messages are handled in turn: the program that answers this one has handled those before it.
BOOL CALLBACK AwaitAnswer(HWND window, LPARAM deadline) {
    const DWORD left = static_cast<DWORD>(deadline) - GetTickCount();
    if (left > BroadcastTimeout) return FALSE;
    DWORD_PTR answer = 0;
    SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, left, &answer);
    return TRUE;
}

}  // namespace

void BroadcastStart() noexcept {
    WakeAllThreads();
    PostMessageA(HWND_BROADCAST, profile.restartMessage, 0, 1);
    PostSettings(SettingKind::Settings);
    PostSettings(SettingKind::Desktops);
}

void BroadcastEnd() noexcept {
    const DWORD deadline = GetTickCount() + BroadcastTimeout;
    EnumWindows(TellEnd, 0);
    EnumWindows(AwaitAnswer, static_cast<LPARAM>(deadline));
}

void BroadcastSettings(SettingKind kind) noexcept {
    PostSettings(kind);
    WakeAllThreads();
}

}  // namespace halyard
