// Ways to the controls of a page. On the dialog's thread.
#pragma once

#include "common/text_buffer.h"
#include "common/win_types.h"

namespace halyard {

// Makes the Apply button live.
void PageChanged(HWND page) noexcept;

// A control that has the focus and becomes grey hands it on.
void EnableControl(HWND page, int control, bool enabled) noexcept;
bool IsChecked(HWND page, int control) noexcept;
void SetCheck(HWND page, int control, bool checked) noexcept;

// Images of the lists.
enum ListImage : int { DesktopImage, DefaultDesktopImage, HotkeyImage };

// Gives the list view its small images, which it frees.
void GiveListImages(HWND list) noexcept;

// Report columns and rows of a list view; texts are narrow. Rows and columns count from 0.
void InsertListColumn(HWND list, int index, const char* title, int width) noexcept;
int InsertListRow(HWND list, int index, const char* text, int image, LPARAM value) noexcept;  // image -1: none
void SetListText(HWND list, int row, int column, const char* text) noexcept;
TextBuffer ListText(HWND list, int row, int column) noexcept;  // up to 259 characters
// What an LVN_ENDLABELEDIT notice of either form carries; empty when the edit was given up.
TextBuffer EditedText(const NMHDR& notice) noexcept;
bool ListValue(HWND list, int row, LPARAM& value) noexcept;    // false: no such row
void SetListValue(HWND list, int row, LPARAM value) noexcept;
int ListRowCount(HWND list) noexcept;
int SelectedListRow(HWND list) noexcept;  // -1 for none
void SelectListRow(HWND list, int row) noexcept;

}  // namespace halyard
