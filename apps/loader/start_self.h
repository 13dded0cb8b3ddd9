// This program, started once more.
#pragma once

#include "common/handles.h"

namespace halyard::loader {

// With the given switches, which begin with a space; `id` becomes the new process's. Null on failure.
KernelHandle StartSelf(const char* switches, DWORD& id) noexcept;

}  // namespace halyard::loader
