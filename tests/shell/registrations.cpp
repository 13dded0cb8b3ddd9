#include "shell/registrations.h"

#include "shell/tray_protocol.h"

#include <cstring>

namespace standin {

namespace {

constexpr WORD RegisterOrdinal = 181;
constexpr DWORD AddTaskManager = 3;  // the one kind of registration that brings events on the NT family

BOOL WINAPI OnRegister(HWND window, DWORD kind) {
    if (window && kind == AddTaskManager) SetPropA(window, ListenerProperty, FindWindowA(TrayClass, nullptr));
    return TRUE;
}

#pragma pack(push, 1)
// Machine code for either bitness: the prefix that makes the load one of 64 bits is "dec eax" in 32-bit code.
struct Jump {
    BYTE load[2] = {0x48, 0xB8};  // mov rax, target
    BOOL(WINAPI* target)(HWND, DWORD) = OnRegister;
    BYTE go[2] = {0xFF, 0xE0};  // jmp rax
};
#pragma pack(pop)

}  // namespace

void KeepRegistrations() {
    HMODULE pinned = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<LPCSTR>(OnRegister), &pinned);
    void* entry = reinterpret_cast<void*>(
        GetProcAddress(LoadLibraryA("shell32.dll"), reinterpret_cast<LPCSTR>(ULONG_PTR{RegisterOrdinal})));
    constexpr Jump Written;
    DWORD before = 0;
    VirtualProtect(entry, sizeof(Jump), PAGE_EXECUTE_READWRITE, &before);
    std::memcpy(entry, &Written, sizeof(Jump));
    VirtualProtect(entry, sizeof(Jump), before, &before);
}

}  // namespace standin
