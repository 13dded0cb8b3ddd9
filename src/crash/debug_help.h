// The platform's side of a crash report: its debug-help library, its modules, and the memory of this process.
#pragma once

#include "common/win_types.h"
#include "crash/report_source.h"

#include <dbghelp.h>

namespace halyard {

// What needs no other library: the memory and the modules of this process. All else of it is null.
ReportSource ProcessMemory() noexcept;

// Answers for a fault of this process whose thread stands still. On one thread only, as the debug-help library asks
// for.
class DebugHelp {
public:
    // Maps the libraries. `progress` is counted up with each step, so that a walk that hangs can be told from a slow
    // one.
    DebugHelp(const CONTEXT& faulted, volatile LONG& progress) noexcept;
    DebugHelp(const DebugHelp&) = delete;
    DebugHelp& operator=(const DebugHelp&) = delete;

    // Valid as long as this object.
    ReportSource Source() noexcept;

    // The place of a walk under way.
    const CONTEXT& faulted;
    CONTEXT walked = {};
    STACKFRAME frame = {};
    volatile LONG& progress;
};

}  // namespace halyard
