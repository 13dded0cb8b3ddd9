#include "shell/app_bars.h"

#include "shell/record.h"

#include <map>

#include <shellapi.h>

namespace standin {

namespace {

// Where Wine's shell library sends its requests: the first of this class among the windows without a place.
constexpr char RequestClass[] = "WineAppBar";

// Its format, the same between programs of either bitness; the data's tag is the ABM_ message.
struct Request {
    ULONG memory;  // a mapping for the answer, by the asking process's handle
    DWORD process;
    LONG window;
    UINT callback;
    UINT edge;
    RECT place;
};

std::map<LONG, UINT> docked;  // window and the message that it wants to be called by

void OnRequest(DWORD message, const Request& request) {
    // It asks for the task bar's place.
    if (message == ABM_GETTASKBARPOS) return;
    const auto& [left, top, right, bottom] = request.place;
    WriteText(StandInKey, BarValue,
              std::to_string(message) + " edge " + std::to_string(request.edge) + " at " + std::to_string(left) + "," +
                  std::to_string(top) + "," + std::to_string(right) + "," + std::to_string(bottom));
    if (message == ABM_NEW) docked[request.window] = request.callback;
    if (message == ABM_REMOVE) docked.erase(request.window);
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_COPYDATA) return DefWindowProcA(window, message, wParam, lParam);
    const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
    OnRequest(static_cast<DWORD>(data.dwData), *static_cast<const Request*>(data.lpData));
    return SendMessageA(FindWindowExA(HWND_MESSAGE, window, RequestClass, nullptr), message, wParam, lParam);
}

}  // namespace

void StartAppBars() {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = Procedure;
    windowClass.lpszClassName = RequestClass;
    RegisterClassA(&windowClass);
    CreateWindowA(RequestClass, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
}

void NotifyAppBars(UINT notice, LPARAM detail) {
    for (const auto& [bar, callback] : docked)
        PostMessageA(static_cast<HWND>(LongToHandle(bar)), callback, notice, detail);
}

}  // namespace standin
