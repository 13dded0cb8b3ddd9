// A module of a program that looks for the size of the desktop through its imports. Built under two names: the one that
// is patched, and another.
#include <windows.h>

extern "C" __declspec(dllexport) BOOL LayerWindowRect(HWND window, RECT* rect) {
    return GetWindowRect(window, rect);
}

extern "C" __declspec(dllexport) BOOL LayerParameters(UINT action, UINT param, void* data, UINT flags) {
    return SystemParametersInfoA(action, param, data, flags);
}
