// The dialog that shows the report on a fault.
#pragma once

#include "common/text_buffer.h"

namespace halyard {

struct ReportDialogData {
    TextBuffer text;
    bool excludeProgram;  // what the user chose
    volatile bool* isUp;  // set once the dialog answers messages
};

// Returns when the user has closed it. On the thread of the report, or on the faulted one where no other can start.
void ShowReportDialog(ReportDialogData& data) noexcept;

}  // namespace halyard
