#include "loader/channel.h"

#include "common/entry.h"
#include "common/window_class.h"

#include <algorithm>
#include <cstring>

namespace halyard::loader {

namespace {

constexpr DWORD AnswerTimeout = 20000;  // ms
constexpr DWORD ReplyTimeout = 2000;    // ms

Answer* waitingAnswer = nullptr;

LRESULT CALLBACK ReplyWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_COPYDATA) return DefWindowProcA(window, message, wParam, lParam);
    const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
    if (!data || data->dwData != ReplyTag || data->cbData == 0 || !waitingAnswer) return FALSE;
    const auto* bytes = static_cast<const char*>(data->lpData);
    waitingAnswer->failed = bytes[0] != 0;
    waitingAnswer->text.assign(bytes + 1, data->cbData - 1);
    return TRUE;
}

WindowClass replyClass("TevralHalyardLoaderReplyWndClass", ReplyWndProc);

HWND MakeReplyWindow() noexcept {
    return replyClass.Create(GetModuleHandleA(nullptr), 0, 0, {}, HWND_MESSAGE);
}

// A command may show a window. Some systems keep it behind the window that the user works with, unless the program that
// the user has started, which is this one, passes its right on. Others lack the entry.
void AllowForeground(HWND window) noexcept {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    const auto allow = EntryOf<BOOL(WINAPI*)(DWORD)>(GetModuleHandleA("user32.dll"), "AllowSetForegroundWindow");
    if (allow) allow(process);
}

}  // namespace

bool SendCommands(HWND resident, const CommandLine& line, Answer& answer) {
    HWND reply = MakeReplyWindow();
    Request request = {};
    request.replyWindow = static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(reply));
    request.count = static_cast<DWORD>(line.count);
    std::copy_n(line.commands, line.count, request.commands);
    COPYDATASTRUCT data = {RequestTag, sizeof(request), &request};
    DWORD_PTR result = 0;
    waitingAnswer = &answer;
    AllowForeground(resident);
    const bool sent = SendMessageTimeoutA(resident, WM_COPYDATA, reinterpret_cast<WPARAM>(reply),
                                          reinterpret_cast<LPARAM>(&data), SMTO_NORMAL, AnswerTimeout, &result) != 0;
    waitingAnswer = nullptr;
    DestroyWindow(reply);
    return sent && result != 0;
}

bool ReadRequest(const COPYDATASTRUCT& data, Request& request) noexcept {
    if (data.dwData != RequestTag || data.cbData != sizeof(request)) return false;
    std::memcpy(&request, data.lpData, sizeof(request));
    return request.count <= MaxCommands;
}

void SendReply(const Request& request, const Answer& answer) {
    std::string bytes(1, answer.failed ? '\1' : '\0');
    bytes += answer.text;
    COPYDATASTRUCT data = {ReplyTag, static_cast<DWORD>(bytes.size()), bytes.data()};
    HWND reply = reinterpret_cast<HWND>(static_cast<LONG_PTR>(static_cast<LONG>(request.replyWindow)));
    DWORD_PTR result = 0;
    SendMessageTimeoutA(reply, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data), SMTO_ABORTIFHUNG, ReplyTimeout,
                        &result);
}

}  // namespace halyard::loader
