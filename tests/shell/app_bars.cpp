#include "shell/app_bars.h"

#include "shell/record.h"

#include <shellapi.h>

namespace standin {

namespace {

// Where the runtime's shell library sends its requests: the first of this class among the windows without a place.
constexpr char RequestClass[] = "WineAppBar";

// Its format, the same between programs of either bitness; the data's tag is the ABM_ message.
struct BarData {
    LONG window;
    UINT callback;
    UINT edge;
    RECT place;
    ULONGLONG parameter;
};
struct Request {
    ULONG memory;  // a mapping for the answer, by the asking process's handle
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
    if (data.dwData == ABM_GETTASKBARPOS) return AnswerPlace(ULongToHandle(request.memory), request.process);
    const auto& [left, top, right, bottom] = request.bar.place;
    Log("bar " + std::to_string(data.dwData) + " edge " + std::to_string(request.bar.edge) + " at " +
        std::to_string(left) + "," + std::to_string(top) + "," + std::to_string(right) + "," + std::to_string(bottom));
    if (data.dwData == ABM_NEW) docked.insert({request.bar.window, request.bar.callback});
    if (data.dwData == ABM_REMOVE) docked.erase(request.bar.window);
    const HWND runtime = FindWindowExA(HWND_MESSAGE, window, RequestClass, nullptr);
    return SendMessageA(runtime, WM_COPYDATA, sender, reinterpret_cast<LPARAM>(&data));
}

bool AppBars::AnswerPlace(HANDLE theirs, DWORD process) const {
    const HANDLE asking = OpenProcess(PROCESS_DUP_HANDLE, FALSE, process);
    HANDLE memory = nullptr;
    DuplicateHandle(asking, theirs, GetCurrentProcess(), &memory, 0, FALSE, DUPLICATE_SAME_ACCESS);
    auto* answer = static_cast<Answer*>(MapViewOfFile(memory, FILE_MAP_WRITE, 0, 0, sizeof(Answer)));
    if (answer) {
        answer->result = TRUE;
        answer->bar.window = HandleToLong(tray);
        answer->bar.edge = edge;
        GetWindowRect(tray, &answer->bar.place);
        UnmapViewOfFile(answer);
    }
    CloseHandle(memory);
    CloseHandle(asking);
    return answer != nullptr;
}

}  // namespace standin
