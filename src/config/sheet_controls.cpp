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

}  // namespace halyard
