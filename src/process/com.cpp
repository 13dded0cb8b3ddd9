#include "process/com.h"

#include "process/profile.h"

#include <objbase.h>

namespace halyard {

namespace {

decltype(&CoInitialize) coInitialize = nullptr;
decltype(&CoCreateInstance) coCreateInstance = nullptr;

}  // namespace

void BindCom() noexcept {
    if (coInitialize) return;
    const HMODULE ole = LoadLibraryA("ole32.dll");
    coInitialize = EntryOf<decltype(coInitialize)>(ole, "CoInitialize");
    coCreateInstance = EntryOf<decltype(coCreateInstance)>(ole, "CoCreateInstance");
    if (coInitialize && coCreateInstance) coInitialize(nullptr);
}

void* CreateObject(const GUID& classId, DWORD context, const GUID& interfaceId) noexcept {
    void* made = nullptr;
    if (!coCreateInstance || FAILED(coCreateInstance(classId, nullptr, context, interfaceId, &made))) return nullptr;
    return made;
}

}  // namespace halyard
