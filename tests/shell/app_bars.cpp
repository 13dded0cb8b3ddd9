#include "shell/app_bars.h"

#include <shellapi.h>

// The header has them for later systems only, where they are no newer.
extern "C" __declspec(dllimport) void* WINAPI SHLockShared(HANDLE memory, DWORD process);
extern "C" __declspec(dllimport) BOOL WINAPI SHUnlockShared(void* data);

namespace standin {

namespace {

// Where the runtime's shell library sends its requests: the first of this class among the windows without a place.
constexpr char RequestClass[] = "WineAppBar";

// Its format, the same between programs of either bitness.
struct BarData {
    LONG window;
    UINT callback;
    UINT edge;
    RECT place;
    ULONGLONG parameter;
};
struct Request {
    DWORD message;
    ULONG memory;  // shared, of the asking process, for the answer
    DWORD process;
    BarData bar;
};
struct Answer {
    ULONGLONG result;
    BarData bar;
};

}  // namespace

AppBars::AppBars(HWND trayWindow) : tray(trayWindow) {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = RequestClass;
    RegisterClassA(&windowClass);
    window = CreateWindowA(RequestClass, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, windowClass.hInstance, nullptr);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

AppBars::~AppBars() {
    DestroyWindow(window);
}

void AppBars::Notify(UINT notice, LPARAM detail) const {
    for (const auto& [bar, callback] : docked)
        PostMessageA(static_cast<HWND>(LongToHandle(bar)), callback, notice, detail);
}

LRESULT CALLBACK AppBars::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* bars = reinterpret_cast<AppBars*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (bars && message == WM_COPYDATA) return bars->OnRequest(wParam, *reinterpret_cast<COPYDATASTRUCT*>(lParam));
    return DefWindowProcA(window, message, wParam, lParam);
}

LRESULT AppBars::OnRequest(WPARAM sender, const COPYDATASTRUCT& data) {
    if (data.cbData != sizeof(Request)) return FALSE;
    const auto& request = *static_cast<const Request*>(data.lpData);
    if (request.message == ABM_GETTASKBARPOS) return AnswerPlace(ULongToHandle(request.memory), request.process);
    if (request.message == ABM_NEW) docked.insert({request.bar.window, request.bar.callback});
    if (request.message == ABM_REMOVE) docked.erase(request.bar.window);
    const HWND runtime = FindWindowExA(HWND_MESSAGE, window, RequestClass, nullptr);
    return SendMessageA(runtime, WM_COPYDATA, sender, reinterpret_cast<LPARAM>(&data));
}

bool AppBars::AnswerPlace(HANDLE memory, DWORD process) const {
    auto* answer = static_cast<Answer*>(SHLockShared(memory, process));
    if (!answer) return false;
    answer->result = TRUE;
    answer->bar.window = HandleToLong(tray);
    answer->bar.edge = edge;
    GetWindowRect(tray, &answer->bar.place);
    SHUnlockShared(answer);
    return true;
}

}  // namespace standin
