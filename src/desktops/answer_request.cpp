#include "desktops/answer_request.h"

namespace halyard {

namespace {

// An answer may come after its request was given up, so it says which one it is for.
ULONG_PTR lastRequest = 0;
ULONG_PTR lastAnswer = 0;

void CALLBACK NoteAnswer(HWND, UINT, ULONG_PTR request, LRESULT) noexcept {
    lastAnswer = request;
}

}  // namespace

void RequestAnswer(HWND window) noexcept {
    // X ignores a request for the focus that is older than the last change of it, and Wine gives the request the time
    // of the posted message that the thread took last. One that has been idle takes this one right after its answer.
    PostMessageA(window, WM_NULL, 0, 0);
    SendMessageCallbackA(window, WM_NULL, 0, 0, NoteAnswer, ++lastRequest);
}

bool HasAnswered() noexcept {
    MSG message;
    PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE | (QS_SENDMESSAGE << 16));
    return lastAnswer == lastRequest;
}

bool AwaitAnswer(DWORD limit) noexcept {
    const DWORD start = GetTickCount();
    for (DWORD waited = 0; !HasAnswered(); waited = GetTickCount() - start) {
        if (waited >= limit) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, limit - waited, QS_SENDMESSAGE);
    }
    return true;
}

bool IsHung(HWND window) noexcept {
    constexpr UINT Moment = 50;  // ms
    const DWORD start = GetTickCount();
    DWORD_PTR answer = 0;
    // For a hung program the call fails at once.
    return !SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, Moment, &answer) &&
           GetTickCount() - start < Moment / 2;
}

}  // namespace halyard
