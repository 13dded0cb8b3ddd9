#include "behaviours/application_patches.h"

#include "behaviours/import_walk.h"
#include "displays/displays.h"
#include "process/profile.h"

#include <dbghelp.h>

namespace halyard {

namespace {

using GetDesktopWindowFn = HWND(WINAPI*)();
using SystemParametersInfoFn = BOOL(WINAPI*)(UINT, UINT, void*, UINT);
using GetWindowRectFn = BOOL(WINAPI*)(HWND, RECT*);

GetDesktopWindowFn realGetDesktopWindow = nullptr;
SystemParametersInfoFn realSystemParametersInfo = nullptr;
GetWindowRectFn realGetWindowRect = nullptr;

constexpr char PatchedModule[] = "ExtensionLayer.dll";

// Where the modelling programs keep the size of the screen, in their own memory.
constexpr ULONG_PTR ScreenWidthAddress = 0x59E5A0;
constexpr ULONG_PTR ScreenHeightAddress = 0x59E5A4;

BOOL WINAPI PatchedGetWindowRect(HWND window, RECT* rect) {
    if (!realGetDesktopWindow || realGetDesktopWindow() != window || !rect) return realGetWindowRect(window, rect);
    *rect = WorkBounds();
    return TRUE;
}

BOOL WINAPI PatchedSystemParametersInfo(UINT action, UINT param, void* data, UINT flags) {
    if (action != SPI_GETWORKAREA || !data) return realSystemParametersInfo(action, param, data, flags);
    *static_cast<RECT*>(data) = WorkBounds();
    return TRUE;
}

template <typename Function>
ULONG_PTR AddressOf(Function function) noexcept {
    return reinterpret_cast<ULONG_PTR>(function);
}

struct Replacement {
    ULONG_PTR from;
    ULONG_PTR to;
    HMODULE module;  // null for all modules
    char* base;      // of the module that is being walked
};

void WriteEntry(void* context, std::size_t offset) noexcept {
    const auto& replacement = *static_cast<const Replacement*>(context);
    char* entry = replacement.base + offset;
    DWORD old = 0;
    if (!VirtualProtect(entry, sizeof(replacement.to), PAGE_READWRITE, &old)) return;
    // Aligned and in one go: another thread calls either the old function or the new one.
    *reinterpret_cast<ULONG_PTR volatile*>(entry) = replacement.to;
    VirtualProtect(entry, sizeof(replacement.to), old, &old);
}

// By address and not by name, which the platforms give in different forms.
void ReplaceIn(ULONG_PTR base, ULONG size, Replacement& replacement) noexcept {
    if (replacement.module && AddressOf(replacement.module) != base) return;
    replacement.base = reinterpret_cast<char*>(base);
    FindImports({reinterpret_cast<const unsigned char*>(base), size}, replacement.from, WriteEntry, &replacement);
}

#ifdef _WIN64
BOOL CALLBACK OnModule(PCSTR, DWORD64 base, ULONG size, void* context) {
    ReplaceIn(static_cast<ULONG_PTR>(base), size, *static_cast<Replacement*>(context));
    return TRUE;
}
constexpr auto EnumerateModules = EnumerateLoadedModules64;
#else
BOOL CALLBACK OnModule(PCSTR, ULONG base, ULONG size, void* context) {
    ReplaceIn(base, size, *static_cast<Replacement*>(context));
    return TRUE;
}
constexpr auto EnumerateModules = EnumerateLoadedModules;
#endif

// `module`: the one that is touched, null for all.
void ReplaceImport(ULONG_PTR from, ULONG_PTR to, HMODULE module) noexcept {
    Replacement replacement = {from, to, module, nullptr};
    EnumerateModules(GetCurrentProcess(), OnModule, &replacement);
}

void PatchExtensionLayer() noexcept {
    const HMODULE layer = GetModuleHandleA(PatchedModule);
    const HMODULE user = GetModuleHandleA("user32.dll");
    if (!layer) return;
    realGetDesktopWindow = EntryOf<GetDesktopWindowFn>(user, "GetDesktopWindow");
    realSystemParametersInfo = EntryOf<SystemParametersInfoFn>(user, "SystemParametersInfoA");
    realGetWindowRect = EntryOf<GetWindowRectFn>(user, "GetWindowRect");
    if (!realSystemParametersInfo || !realGetWindowRect) return;
    ReplaceImport(AddressOf(realSystemParametersInfo), AddressOf(PatchedSystemParametersInfo), layer);
    ReplaceImport(AddressOf(realGetWindowRect), AddressOf(PatchedGetWindowRect), layer);
}

bool IsWritable(ULONG_PTR address, SIZE_T size) noexcept {
    MEMORY_BASIC_INFORMATION info = {};
    constexpr DWORD Writable = PAGE_READWRITE | PAGE_WRITECOPY | PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
    return VirtualQuery(reinterpret_cast<const void*>(address), &info, sizeof(info)) && info.State == MEM_COMMIT &&
           (info.Protect & Writable) && !(info.Protect & PAGE_GUARD) &&
           address + size <= reinterpret_cast<ULONG_PTR>(info.BaseAddress) + info.RegionSize;
}

// Another build of the program has something else there, and is left alone.
void WidenScreenSize() noexcept {
    if (!IsWritable(ScreenWidthAddress, 2 * sizeof(int))) return;
    auto* width = reinterpret_cast<volatile int*>(ScreenWidthAddress);
    auto* height = reinterpret_cast<volatile int*>(ScreenHeightAddress);
    if (*width != GetSystemMetrics(SM_CXSCREEN)) return;
    *width = GetSystemMetrics(SM_CXVIRTUALSCREEN);
    *height = GetSystemMetrics(SM_CYVIRTUALSCREEN);
}

}  // namespace

void ApplyApplicationPatches() noexcept {
    if (profile.program.maya) PatchExtensionLayer();
    if (profile.program.modeler) WidenScreenSize();
}

void RemoveApplicationPatches() noexcept {
    if (realSystemParametersInfo)
        ReplaceImport(AddressOf(PatchedSystemParametersInfo), AddressOf(realSystemParametersInfo), nullptr);
    if (realGetWindowRect) ReplaceImport(AddressOf(PatchedGetWindowRect), AddressOf(realGetWindowRect), nullptr);
}

}  // namespace halyard
