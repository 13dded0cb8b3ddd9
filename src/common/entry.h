// Functions of the platform that some systems lack.
#pragma once

#include "common/win_types.h"

namespace halyard {

// A platform entry as the type that the caller knows it by; null when the module or the entry is missing.
template <typename Function>
Function EntryOf(HMODULE module, const char* name) noexcept {
    return module ? reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name))) : nullptr;
}

}  // namespace halyard
