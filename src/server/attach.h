// What every process does when the library comes and goes.
#pragma once

#include "common/win_types.h"

namespace halyard {

// The load and the unload step, under the loader lock. Neither can fail.
void OnLoad(HINSTANCE module) noexcept;
void OnUnload() noexcept;

// A thread of the process ends. On that thread, under the loader lock.
void OnThreadEnd() noexcept;

}  // namespace halyard
