// Starts programs whose paths may have any letters.
#pragma once

#include "common/handles.h"

namespace halyard {

enum class Inherit : BOOL {
    Nothing = FALSE,  // whoever reads this program's output doesn't wait for the end of the new one as well
    Handles = TRUE,
};

// `path` is the program's full path, `line` its whole command line; both are narrow texts of the system. `id` becomes
// the new process's where it isn't null. The process, or null on failure.
KernelHandle StartProgram(const char* path, const char* line, Inherit inherit = Inherit::Nothing,
                          DWORD* id = nullptr) noexcept;

}  // namespace halyard
