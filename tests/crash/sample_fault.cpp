// A program with a filter of its own, in which the library faults on request: of a test, or of a user's click.
#include "crash/fault_protocol.h"

#include <cstring>

namespace {

using namespace halyard::test;
using FaultFn = int (*)(int);

FaultSeen unwatched = {};
FaultSeen* seen = &unwatched;

LONG CALLBACK Note(EXCEPTION_POINTERS* fault) {
    // Debug output and the naming of threads are exceptions as well.
    if (fault->ExceptionRecord->ExceptionCode < 0xC0000000) return EXCEPTION_CONTINUE_SEARCH;
    if (InterlockedIncrement(&seen->faults) == 1) {
        seen->record = *fault->ExceptionRecord;
        seen->context = *fault->ContextRecord;
        seen->library = GetModuleHandleA("tvlHalyd.dll");
    }
    return EXCEPTION_CONTINUE_SEARCH;
}

LONG WINAPI OwnFilter(EXCEPTION_POINTERS* fault) {
    InterlockedIncrement(&seen->ownFilterCalls);
    seen->ownFilterCode = fault->ExceptionRecord->ExceptionCode;
    ExitProcess(OwnFilterStatus);
}

FaultFn Entry() {
    const HMODULE library = GetModuleHandleA("tvlHalyd.dll");
    return reinterpret_cast<FaultFn>(reinterpret_cast<void*>(GetProcAddress(library, FaultEntry)));
}

DWORD WINAPI FaultingThread(void*) {
    return static_cast<DWORD>(Entry()(Read));
}

void WINAPI Hang() {
    Sleep(INFINITE);
}

// Turns the beginning of a function into a jump to Hang.
void HangIn(void* function) {
    unsigned char jump[] = {0x48, 0xB8, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xE0};  // mov rax, target; jmp rax
    constexpr bool wide = sizeof(void*) == 8;
    const auto target = reinterpret_cast<ULONG_PTR>(&Hang);
    std::memcpy(jump + 2, &target, sizeof(target));
    // Without the prefix and the target's upper half the same bytes are what a 32-bit program needs.
    unsigned char* code = wide ? jump : jump + 1;
    if (!wide) std::memcpy(jump + 6, jump + 10, 2);
    DWORD before = 0;
    VirtualProtect(function, sizeof(jump), PAGE_EXECUTE_READWRITE, &before);
    std::memcpy(function, code, wide ? 12 : 7);
}

void Fault(int kind) {
    int* volatile nowhere = reinterpret_cast<int*>(0x20);
    switch (kind) {
    case ProgramsOwn: *nowhere = 1; break;
    case TwoThreads:
        CloseHandle(CreateThread(nullptr, 0, FaultingThread, nullptr, 0, nullptr));
        Entry()(Read);
        break;
    case LoaderLocked: {
        using LockFn = LONG(WINAPI*)(ULONG flags, ULONG * result, ULONG_PTR * cookie);
        const auto lock = reinterpret_cast<LockFn>(
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("ntdll.dll"), "LdrLockLoaderLock")));
        const FaultFn entry = Entry();
        ULONG result = 0;
        ULONG_PTR cookie = 0;
        lock(0, &result, &cookie);
        entry(Read);
        break;
    }
    case SymbolsHang:
        HangIn(reinterpret_cast<void*>(GetProcAddress(LoadLibraryA("dbghelp.dll"), "SymInitialize")));
        Entry()(Deep);
        break;
    default: Entry()(kind);
    }
}

LRESULT CALLBACK SampleProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == FaultMessage) Fault(static_cast<int>(wParam));
    if (message == WM_LBUTTONUP) Fault(Read);
    if (message == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, char*, int) {
    const HANDLE mapping = OpenFileMappingA(FILE_MAP_WRITE, FALSE, SeenName);
    if (mapping) seen = static_cast<FaultSeen*>(MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, sizeof(FaultSeen)));
    SetUnhandledExceptionFilter(OwnFilter);
    AddVectoredExceptionHandler(1, Note);
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = SampleProc;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    windowClass.lpszClassName = "HalyardFaultingSample";
    RegisterClassA(&windowClass);
    CreateWindowExA(0, windowClass.lpszClassName, FaultTitle, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100, 400, 300,
                    nullptr, nullptr, instance, nullptr);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
    return 0;
}
