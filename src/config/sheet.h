// What the pages of the property sheet share. On the dialog's thread, but where it says otherwise.
#pragma once

#include "common/win_types.h"
#include "config/page_rules.h"
#include "config/sheet_pages.h"

namespace halyard {

// To a page.
enum PageMessage : UINT {
    RefreshPageMessage = 1025,  // posted: show the present state
    RaiseSheetMessage = 1026,   // posted: the sheet comes to the front with the page that is wanted
};

// One while the dialog's thread runs.
struct Sheet {
    HWND volatile window = nullptr;            // null until the platform has made the sheet, and again when it goes
    HWND tip = nullptr;                        // shows the help popups
    HWND volatile pages[SheetPageCount] = {};  // each from its WM_INITDIALOG on; other threads post to them
    volatile LONG wantedPage = PresentPage;    // by the last call that wanted the sheet in front. Any thread
    bool canEdit = false;                      // whether the user may change the settings, as of the dialog's start
};

extern Sheet sheet;

// The state that the enable rules start from, as of now. Any thread.
PageState CurrentPageState() noexcept;

}  // namespace halyard
