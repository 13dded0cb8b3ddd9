// A library that does nothing, yet maps what ours does and can be hooked in: what a program pays for any hook library
// at all.
#include <cstring>
#include <windows.h>

// Never called. It refers to a function of each library.
extern "C" __declspec(dllexport) int Imports(HWND window) {
    char text[8] = {};
    GetWindowTextA(window, text, sizeof(text));
    HDC dc = GetDC(window);
    const int found = GetPixel(dc, 0, 0) != CLR_INVALID;
    ReleaseDC(window, dc);
    return found + std::strstr(text, "a")[0];
}

// Of either kind of hook.
extern "C" __declspec(dllexport) LRESULT CALLBACK EmptyHook(int code, WPARAM wParam, LPARAM lParam) {
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, void*) {
    return TRUE;
}
