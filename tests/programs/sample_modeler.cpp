// Holds the size of the screen where the modelling programs have it. Its file is given their names.
#include "programs/modeler_protocol.h"

namespace modeler {

namespace {

// From the image's first pages to beyond the two numbers, zeroed by the platform and never touched elsewhere.
char memory[0x200000];

int& NumberAt(ULONG_PTR address) {
    return *reinterpret_cast<int*>(address);
}

bool HoldsNumbers() {
    const auto start = reinterpret_cast<ULONG_PTR>(memory);
    return start <= WidthAddress && HeightAddress + sizeof(int) <= start + sizeof(memory);
}

void Protect(DWORD protection) {
    DWORD old = 0;
    VirtualProtect(reinterpret_cast<void*>(WidthAddress), 2 * sizeof(int), protection, &old);
}

LRESULT CALLBACK MainProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == AskWidth || message == AskHeight) Protect(PAGE_READWRITE);
    switch (message) {
    case AskWidth: return NumberAt(WidthAddress);
    case AskHeight: return NumberAt(HeightAddress);
    case WM_DESTROY: PostQuitMessage(0); break;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

}  // namespace modeler

// An argument: the width that it believes in, else the first display's; "none" for that one out of everybody's reach.
int main(int count, char** arguments) {
    using namespace modeler;
    if (!HoldsNumbers()) return 1;
    const int width = count > 1 ? std::atoi(arguments[1]) : 0;
    NumberAt(WidthAddress) = width ? width : GetSystemMetrics(SM_CXSCREEN);
    NumberAt(HeightAddress) = GetSystemMetrics(SM_CYSCREEN);
    if (count > 1 && !width) Protect(PAGE_NOACCESS);
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = MainProc;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = Title;
    RegisterClassA(&windowClass);
    CreateWindowA(Title, Title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 40, 300, 200, nullptr, nullptr,
                  windowClass.hInstance, nullptr);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
    return 0;
}
