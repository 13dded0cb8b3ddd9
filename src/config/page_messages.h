// What all pages do alike. On the dialog's thread.
#pragma once

#include "common/win_types.h"
#include "config/sheet_pages.h"

namespace halyard {

// Comes first in every page: help, tips, pictures, raising the sheet. True: the message ends here, with `result` as the
// answer.
bool HandleSharedMessage(HWND page, UINT message, WPARAM wParam, LPARAM lParam, INT_PTR& result) noexcept;

// At the end of a page's WM_INITDIALOG.
void AddPage(SheetPage index, HWND page) noexcept;

}  // namespace halyard
