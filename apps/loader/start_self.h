// This program, started once more.
#pragma once

#include "common/handles.h"

namespace halyard::loader {

// With the given switches, which begin with a space; `id` becomes the new process's. No handle is inherited: whoever
// reads this program's output would wait for the end of the new one as well. Null on failure.
KernelHandle StartSelf(const char* switches, DWORD& id) noexcept;

}  // namespace halyard::loader
