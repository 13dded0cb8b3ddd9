#include "taskbars/shell/shell_silence.h"

#include <windows.h>

namespace halyard {

namespace {

constexpr DWORD SilencePeriod = 10000;  // ms
constexpr UINT AnswerTimeout = 1000;    // ms

bool isSilent = false;
DWORD silentSince = 0;

}  // namespace

bool IsShellSilent() noexcept {
    return isSilent && GetTickCount() - silentSince < SilencePeriod;
}

void NoteShellAnswer(bool answered) noexcept {
    isSilent = !answered;
    silentSince = GetTickCount();
}

bool ShellAnswers() noexcept {
    HWND tray = FindWindowA("Shell_TrayWnd", nullptr);
    if (!tray || IsShellSilent()) return false;
    DWORD_PTR ignored = 0;
    NoteShellAnswer(SendMessageTimeoutA(tray, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, AnswerTimeout, &ignored) != 0);
    return !isSilent;
}

}  // namespace halyard
