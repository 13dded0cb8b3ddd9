// A program with windows that do as the tests say. Works under any file name.
#include "programs/sample_options.h"
#include "programs/sample_protocol.h"

namespace sample {

namespace {

constexpr char PopupClass[] = "HalyardSamplePopup";
Options options;
LONG mainWindows = 0;  // alive on all threads
LONG messageCounts[WM_USER] = {};
DWORD mainThread = 0;

LRESULT OnOpenPopup(HWND owner, bool visible) {
    RECT place;
    GetWindowRect(owner, &place);
    const HWND popup = CreateWindowA(PopupClass, "Popup", WS_POPUP | WS_CAPTION, place.left + 60, place.top + 60, 160,
                                     120, owner, nullptr, GetModuleHandleA(nullptr), nullptr);
    if (visible) ShowWindow(popup, SW_SHOWNA);
    return reinterpret_cast<LRESULT>(popup);
}

LRESULT OnHang(DWORD period) {
    const HANDLE wake = CreateEventA(nullptr, TRUE, FALSE, WakeEvent);
    WaitForSingleObject(wake, period);
    CloseHandle(wake);
    return 0;
}

// Hook code is not on its way through the thread while it handles a sent message.
LRESULT OnUnmapLibrary() {
    const HMODULE library = GetModuleHandleA("tvlHalyd.dll");
    return library && FreeLibrary(library) && !GetModuleHandleA("tvlHalyd.dll");
}

// The program ends with its last main window.
LRESULT OnDestroy() {
    if (InterlockedDecrement(&mainWindows) == 0)
        PostThreadMessageA(mainThread, WM_QUIT, 0, 0);
    else if (options.ownThreads && GetCurrentThreadId() != mainThread)
        PostQuitMessage(0);
    return 0;
}

LRESULT CALLBACK PopupProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message < WM_USER) InterlockedIncrement(&messageCounts[message]);
    if (message == ShowAs) return ShowWindow(window, static_cast<int>(wParam));
    return DefWindowProcA(window, message, wParam, lParam);
}

LRESULT CALLBACK MainProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case OpenPopup: return OnOpenPopup(window, wParam != 0);
    case Hang: return OnHang(static_cast<DWORD>(wParam));
    case CountMessage: return wParam < WM_USER ? messageCounts[wParam] : 0;
    case UnmapLibrary: return OnUnmapLibrary();
    case WM_DESTROY: return OnDestroy();
    }
    return PopupProc(window, message, wParam, lParam);
}

void RegisterOne(const char* name, WNDPROC procedure) {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    windowClass.lpszClassName = name;
    RegisterClassA(&windowClass);
}

void OpenMain(int number) {
    const std::string title = number == 1 ? options.title : options.title + " " + std::to_string(number);
    const RECT& place = options.place;
    const int shift = (number - 1) % 16 * 12;
    // A popup of a window that doesn't clip its children counts as a window by itself.
    const DWORD style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
    const HWND window = CreateWindowA(options.windowClass.c_str(), title.c_str(), style, place.left + shift,
                                      place.top + shift, place.right - place.left, place.bottom - place.top, nullptr,
                                      nullptr, GetModuleHandleA(nullptr), nullptr);
    if (!options.hidden) ShowWindow(window, SW_SHOWNA);
}

void Pump() {
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

DWORD WINAPI RunThread(void* number) {
    OpenMain(static_cast<int>(reinterpret_cast<INT_PTR>(number)));
    Pump();
    return 0;
}

int Run(int count, char** arguments) {
    if (!ReadOptions(count, arguments, options)) return 2;
    if (options.colour) return static_cast<int>(GetSysColor(COLOR_BACKGROUND));
    mainThread = GetCurrentThreadId();
    mainWindows = options.count;
    RegisterOne(options.windowClass.c_str(), MainProc);
    RegisterOne(PopupClass, PopupProc);
    OpenMain(1);
    for (int number = 2; number <= options.count; ++number) {
        if (!options.ownThreads)
            OpenMain(number);
        else if (HANDLE thread =
                     CreateThread(nullptr, 0, RunThread, reinterpret_cast<void*>(INT_PTR(number)), 0, nullptr))
            CloseHandle(thread);
    }
    Pump();
    return 0;
}

}  // namespace

}  // namespace sample

int main(int count, char** arguments) {
    return sample::Run(count, arguments);
}
