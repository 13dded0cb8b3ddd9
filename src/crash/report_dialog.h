// The dialog that shows the report on a fault.
#pragma once

#include "common/text_buffer.h"

namespace halyard {

struct ReportDialogData {
    TextBuffer text;
    bool excludeProgram;  // what the user chose
};

// Returns when the user has closed it. On the report's own thread.
void ShowReportDialog(ReportDialogData& data) noexcept;

}  // namespace halyard
