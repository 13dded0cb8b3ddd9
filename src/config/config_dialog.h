// The property sheet.
#pragma once

#include "config/sheet_pages.h"

namespace halyard {

// Opens the sheet on that page, in the middle of the display that has the cursor, or raises the one that is open. Any
// thread of the server process; none waits for the sheet.
void OpenConfigDialog(int page) noexcept;

// Has the open sheet's pages show the present state; nothing without one. Any thread; doesn't wait.
void RefreshPages() noexcept;

// Ends the open sheet and waits for it, 5 s at most; nothing without one. On the server's thread.
void DestroyConfigDialog() noexcept;

}  // namespace halyard
