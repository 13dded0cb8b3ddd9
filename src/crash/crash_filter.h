// The filter that sees faults nobody has handled.
#pragma once

#include "common/win_types.h"

namespace halyard {

// Put in place at load and taken out at unload. A fault that isn't the library's goes to the filter that stood before.
void InstallCrashFilter() noexcept;
void RemoveCrashFilter() noexcept;

// Shows the report on a fault of the library's own, waits for the user to close it, and lets the process end.
LONG WINAPI CrashFilter(EXCEPTION_POINTERS* fault);

}  // namespace halyard
