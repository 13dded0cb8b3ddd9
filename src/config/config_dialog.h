// The property sheet.
#pragma once

namespace halyard {

// Opens the sheet on a page counted from 0, or raises the one that is open. Any thread of the server process.
void OpenConfigDialog(int page) noexcept;

// The open sheet's pages show the present state; nothing without one.
void RefreshPages() noexcept;

// Ends the open sheet; nothing without one.
void DestroyConfigDialog() noexcept;

}  // namespace halyard
