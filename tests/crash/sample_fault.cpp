// A program with a filter of its own, in which the library faults on request: of a test, or of a user's click.
#include "crash/fault_protocol.h"

#include <cstring>

namespace {

using namespace halyard::test;

template <typename Function>
Function EntryOf(HMODULE module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

LONG WINAPI OwnFilter(EXCEPTION_POINTERS*) {
    ExitProcess(OwnFilterStatus);
}

void HoldLoaderLock() {
    ULONG result = 0;
    ULONG_PTR cookie = 0;
    EntryOf<LONG(WINAPI*)(ULONG, ULONG*, ULONG_PTR*)>(GetModuleHandleA("ntdll.dll"), "LdrLockLoaderLock")(0, &result,
                                                                                                          &cookie);
}

void HangSymbols() {
    constexpr unsigned char JumpToItself[] = {0xEB, 0xFE};
    void* entry = EntryOf<void*>(LoadLibraryA("dbghelp.dll"), "SymInitialize");
    DWORD before = 0;
    VirtualProtect(entry, sizeof(JumpToItself), PAGE_EXECUTE_READWRITE, &before);
    std::memcpy(entry, JumpToItself, sizeof(JumpToItself));
}

void Fault(int kind) {
    const auto fault = EntryOf<int (*)(int)>(GetModuleHandleA("tvlHalyd.dll"), "FaultForTest");
    int* volatile nowhere = reinterpret_cast<int*>(0x20);
    if (kind == ProgramsOwn) *nowhere = 1;
    if (kind == SymbolsHang) HangSymbols();
    if (kind == LoaderLocked) HoldLoaderLock();
    fault(kind);
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, char*, int) {
    SetUnhandledExceptionFilter(OwnFilter);
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    windowClass.lpszClassName = "HalyardFaultingSample";
    RegisterClassA(&windowClass);
    const HWND window = CreateWindowA(windowClass.lpszClassName, FaultTitle, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100,
                                      400, 300, nullptr, nullptr, instance, nullptr);
    MSG message;
    while (IsWindow(window) && GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (message.message == FaultMessage) Fault(static_cast<int>(message.wParam));
        if (message.message == WM_LBUTTONUP) Fault(Deep);
        DispatchMessageA(&message);
    }
    return 0;
}
