// What the pages of the property sheet share. All on the dialog's thread, but where it says otherwise.
#pragma once

#include "common/text_buffer.h"
#include "config/page_rules.h"

namespace halyard {

inline constexpr UINT RefreshPageMessage = 1025;  // to a page, from RefreshPages: apply the enable rules again

enum SheetPage : int { WindowsPage, TaskbarsPage, DesktopsPage, HotkeysPage, PageCount };

// One while the sheet is open.
struct Sheet {
    HWND volatile window = nullptr;       // the sheet; tells other threads that the dialog is open
    HWND tip = nullptr;                   // shows the help popups
    HDC spriteDc = nullptr;               // the pictures of all pages
    HWND volatile pages[PageCount] = {};  // each from its WM_INITDIALOG on
    int helpControl = 0;                  // that the help menu was opened on
    bool tipShown = false;
    bool canEdit = false;  // as of the dialog's start
};

extern Sheet sheet;

// The state that the enable rules start from, as of now.
PageState CurrentPageState() noexcept;

INT_PTR CALLBACK WindowsPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK TaskbarsPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK DesktopsPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK HotkeysPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);

// What every page does first: help, tips, pictures. True: the message ends here, with `result` as the answer.
bool HandleSharedMessage(HWND page, UINT message, WPARAM wParam, LPARAM lParam, INT_PTR& result) noexcept;

// Makes the Apply button live.
void PageChanged(HWND page) noexcept;

void EnableControl(HWND page, int control, bool enabled) noexcept;
bool IsChecked(HWND page, int control) noexcept;
void SetCheck(HWND page, int control, bool checked) noexcept;

// The small images of the lists. The list view that it is given to frees it.
void GiveListImages(HWND list) noexcept;

// Report columns and rows of a list view; texts are narrow.
void InsertListColumn(HWND list, int index, const char* title, int width) noexcept;
int InsertListRow(HWND list, int index, const char* text, int image, LPARAM value) noexcept;  // image -1: none
void SetListText(HWND list, int row, int column, const char* text) noexcept;
TextBuffer ListText(HWND list, int row, int column) noexcept;
bool ListValue(HWND list, int row, LPARAM& value) noexcept;
int SelectedListRow(HWND list) noexcept;  // -1 for none

// Images of the lists.
enum ListImage : int { DesktopImage, DefaultDesktopImage, HotkeyImage };

}  // namespace halyard
