#include "config/sheet_controls.h"

#include "common/handles.h"
#include "process/profile.h"
#include "resources/resource_ids.h"

#include <commctrl.h>
#include <prsht.h>

namespace halyard {

void PageChanged(HWND page) noexcept {
    SendMessageA(GetParent(page), PSM_CHANGED, reinterpret_cast<WPARAM>(page), 0);
}

void EnableControl(HWND page, int control, bool enabled) noexcept {
    HWND window = GetDlgItem(page, control);
    // Of a grey control the keys would come to nobody, not even those that close the sheet.
    if (!enabled && GetFocus() == window) SendMessageA(GetParent(page), WM_NEXTDLGCTL, 0, FALSE);
    EnableWindow(window, enabled);
}

bool IsChecked(HWND page, int control) noexcept {
    return IsDlgButtonChecked(page, control) == BST_CHECKED;
}

void SetCheck(HWND page, int control, bool checked) noexcept {
    CheckDlgButton(page, control, checked ? BST_CHECKED : BST_UNCHECKED);
}

void GiveListImages(HWND list) noexcept {
    constexpr int Size = 16;
    HIMAGELIST images = ImageList_Create(Size, Size, ILC_COLOR8 | ILC_MASK, 2, 1);
    const Bitmap strip(LoadBitmapA(profile.moduleInstance, MAKEINTRESOURCEA(IDB_LIST_IMAGES)));
    if (images && strip) ImageList_AddMasked(images, strip.get(), RGB(0, 0xFF, 0));
    SendMessageA(list, LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(images));
}

void InsertListColumn(HWND list, int index, const char* title, int width) noexcept {
    LVCOLUMNA column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    column.pszText = const_cast<char*>(title);
    column.cx = width;
    column.iSubItem = index;
    SendMessageA(list, LVM_INSERTCOLUMNA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
}

int InsertListRow(HWND list, int index, const char* text, int image, LPARAM value) noexcept {
    LVITEMA item = {};
    item.mask = LVIF_TEXT | LVIF_PARAM | (image >= 0 ? LVIF_IMAGE : 0);
    item.iItem = index;
    item.pszText = const_cast<char*>(text);
    item.iImage = image;
    item.lParam = value;
    return static_cast<int>(SendMessageA(list, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item)));
}

void SetListText(HWND list, int row, int column, const char* text) noexcept {
    LVITEMA item = {};
    item.iSubItem = column;
    item.pszText = const_cast<char*>(text);
    SendMessageA(list, LVM_SETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

TextBuffer ListText(HWND list, int row, int column) noexcept {
    constexpr int Room = 260;
    TextBuffer text;
    if (!text.Reserve(Room)) return text;
    LVITEMA item = {};
    item.iSubItem = column;
    item.pszText = text.Room();
    item.cchTextMax = Room;
    SendMessageA(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return text;
}

bool ListValue(HWND list, int row, LPARAM& value) noexcept {
    LVITEMA item = {};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    if (row < 0 || !SendMessageA(list, LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item))) return false;
    value = item.lParam;
    return true;
}

void SetListValue(HWND list, int row, LPARAM value) noexcept {
    LVITEMA item = {};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    item.lParam = value;
    SendMessageA(list, LVM_SETITEMA, 0, reinterpret_cast<LPARAM>(&item));
}

int ListRowCount(HWND list) noexcept {
    return static_cast<int>(SendMessageA(list, LVM_GETITEMCOUNT, 0, 0));
}

int SelectedListRow(HWND list) noexcept {
    return static_cast<int>(SendMessageA(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

void SelectListRow(HWND list, int row) noexcept {
    LVITEMA item = {};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    item.state = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageA(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    SendMessageA(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

}  // namespace halyard
