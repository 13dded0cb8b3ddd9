#include "common/list_view.h"

#include "common/wide_text_buffer.h"

#include <commctrl.h>

namespace halyard {

namespace {

struct ItemMessage {
    UINT narrow;
    UINT wide;
};

// The two forms of an item differ in the text only.
LRESULT SendItem(HWND list, ItemMessage message, WPARAM wParam, LVITEMA& item, const char* text) noexcept {
    item.pszText = const_cast<char*>(text);
    if (!TakesWideText()) return SendMessageA(list, message.narrow, wParam, reinterpret_cast<LPARAM>(&item));
    const WideTextBuffer wide(text);
    item.pszText = reinterpret_cast<char*>(const_cast<wchar_t*>(wide.Text()));
    return SendMessageA(list, message.wide, wParam, reinterpret_cast<LPARAM>(&item));
}

}  // namespace

void UseWideText(HWND list) noexcept {
    if (TakesWideText()) SendMessageA(list, LVM_SETUNICODEFORMAT, TRUE, 0);
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
    item.iImage = image;
    item.lParam = value;
    return static_cast<int>(SendItem(list, {LVM_INSERTITEMA, LVM_INSERTITEMW}, 0, item, text));
}

void SetListText(HWND list, int row, int column, const char* text) noexcept {
    LVITEMA item = {};
    item.iSubItem = column;
    SendItem(list, {LVM_SETITEMTEXTA, LVM_SETITEMTEXTW}, static_cast<WPARAM>(row), item, text);
}

TextBuffer ListText(HWND list, int row, int column) noexcept {
    constexpr int Room = 260;
    char narrow[Room] = {};
    wchar_t wide[Room] = {};
    const bool isWide = TakesWideText();
    LVITEMA item = {};
    item.iSubItem = column;
    item.pszText = isWide ? reinterpret_cast<char*>(wide) : narrow;
    item.cchTextMax = Room;
    SendMessageA(list, isWide ? LVM_GETITEMTEXTW : LVM_GETITEMTEXTA, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&item));
    return isWide ? Narrow(wide) : TextBuffer(narrow);
}

TextBuffer EditedText(const NMHDR& notice) noexcept {
    const char* text = reinterpret_cast<const NMLVDISPINFOA&>(notice).item.pszText;
    if (!text) return TextBuffer();
    return notice.code == static_cast<UINT>(LVN_ENDLABELEDITW) ? Narrow(reinterpret_cast<const wchar_t*>(text))
                                                               : TextBuffer(text);
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
