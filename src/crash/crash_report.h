// Gathers what the platform knows of a fault for its report.
#pragma once

#include "common/win_types.h"
#include "crash/report_text.h"

namespace halyard {

// The platform's own text where the table of names has none; that one lies in a static buffer that the next call
// overwrites. Never null.
const char* ExceptionName(DWORD code) noexcept;

// Fills `report` with what needs no other library: the exception, the registers, the system. On any thread.
void BuildReportHead(const EXCEPTION_POINTERS& exception, ReportText& report) noexcept;

// Fills `report` with all that there is to tell of the fault. On the report's own thread; the faulted one stands still.
// Counts `progress` up as it goes on.
void BuildReport(const EXCEPTION_POINTERS& exception, ReportText& report, volatile LONG& progress) noexcept;

}  // namespace halyard
