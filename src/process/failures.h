// The last things that went wrong and that a user could notice: what was tried and the platform's error. Kept in memory
// of the process, shown by the loader's status.
#pragma once

#include "common/win_types.h"

namespace halyard {

// Keeps that `what` couldn't be had, with GetLastError, and traces it. `what` is a noun of a sentence and lives for
// ever. Any thread.
void KeepFailure(const char* what) noexcept;

// The text of a kept failure, the last one at index 0, as a global atom that the caller deletes. 0 past the end.
ATOM FailureAtom(unsigned index) noexcept;

}  // namespace halyard
