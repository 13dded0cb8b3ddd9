#include "server/attach.h"

#include <new>

// The library brings its own allocation: the language's would throw, and bring the runtime that throwing needs into
// every program.
namespace {

void* Allocate(std::size_t size) noexcept {
    return HeapAlloc(GetProcessHeap(), 0, size ? size : 1);
}

void Free(void* memory) noexcept {
    if (memory) HeapFree(GetProcessHeap(), 0, memory);
}

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
}
void operator delete(void* memory) noexcept {
    Free(memory);
}
void operator delete[](void* memory) noexcept {
    Free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    Free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    Free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    Free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    Free(memory);
}

// The start code calls this to mend references to data of other libraries. There are none, and the linker is told to
// refuse them: 5 KB less in every program.
extern "C" void _pei386_runtime_relocator() {}

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) halyard::OnLoad(module);
    if (reason == DLL_THREAD_DETACH) halyard::OnThreadEnd();
    if (reason == DLL_PROCESS_DETACH) halyard::OnUnload();
    return TRUE;
}
