// Stands in for a module of a program: asks the platform for sizes through imports of its own.
#include <windows.h>

extern "C" __declspec(dllexport) BOOL LayerWindowRect(HWND window, RECT* rect) {
    return GetWindowRect(window, rect);
}

extern "C" __declspec(dllexport) BOOL LayerParameter(UINT action, void* data) {
    return SystemParametersInfoA(action, 0, data, 0);
}
