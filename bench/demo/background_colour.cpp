// Prints the colour that the desktop's background has, then waits until the system tells that its colours changed. A
// program of Wine asks for the colours once and keeps the answer, so that whoever wants to follow them starts this
// again.
#include <cstdio>
#include <windows.h>

namespace {

LRESULT CALLBACK ListenerWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SYSCOLORCHANGE) PostQuitMessage(0);
    return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

int main() {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = ListenerWndProc;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = "HalyardDemoColourListener";
    RegisterClassA(&windowClass);
    // A top-level window, never shown: broadcasts go to those alone. It is there before the question, so that no change
    // falls between the two.
    if (!CreateWindowA(windowClass.lpszClassName, nullptr, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                       windowClass.hInstance, nullptr))
        return 1;
    const COLORREF colour = GetSysColor(COLOR_BACKGROUND);
    std::printf("%02X%02X%02X\n", GetRValue(colour), GetGValue(colour), GetBValue(colour));
    std::fflush(stdout);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
    return 0;
}
