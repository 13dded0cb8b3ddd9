// Report columns and rows of a list view control; rows and columns count from 0, texts are the system's narrow ones. On
// the thread of the control.
#pragma once

#include "common/text_buffer.h"
#include "common/win_types.h"

namespace halyard {

// Its notices carry wide text from then on, where the platform takes that.
void UseWideText(HWND list) noexcept;

void InsertListColumn(HWND list, int index, const char* title, int width) noexcept;
int InsertListRow(HWND list, int index, const char* text, int image, LPARAM value) noexcept;  // image -1: none
void SetListText(HWND list, int row, int column, const char* text) noexcept;
TextBuffer ListText(HWND list, int row, int column) noexcept;  // up to 259 characters
// What an LVN_ENDLABELEDIT notice of either form carries; empty when the edit was given up.
TextBuffer EditedText(const NMHDR& notice) noexcept;
bool ListValue(HWND list, int row, LPARAM& value) noexcept;  // false: no such row
void SetListValue(HWND list, int row, LPARAM value) noexcept;
int ListRowCount(HWND list) noexcept;
int SelectedListRow(HWND list) noexcept;          // -1 for none
void SelectListRow(HWND list, int row) noexcept;  // and scrolls to it

}  // namespace halyard
