#include "process/broadcasts.h"

#include "process/profile.h"

namespace halyard {

namespace {

BOOL CALLBACK Wake(HWND window, LPARAM) {
    SendNotifyMessageA(window, WM_NULL, 0, 0);
    return TRUE;
}

// Two broadcasts may come within one tick of the clock, so the clock gives the first number only.
volatile LONG broadcastNumber = static_cast<LONG>(GetTickCount());

void PostSettings(SettingKind kind) noexcept {
    LONG number = InterlockedIncrement(&broadcastNumber);
    // 0 is a message without a number.
    if (number == 0) number = InterlockedIncrement(&broadcastNumber);
    PostMessageA(HWND_BROADCAST, profile.settingMessage, static_cast<WPARAM>(kind), number);
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

// A broadcast that waits would wait for each window of a program that doesn't answer.
void WakeAllThreads() noexcept {
    EnumWindows(Wake, 0);
}

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
