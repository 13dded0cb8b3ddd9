#include "shell/task_control.h"

#include "shell/task_windows.h"

namespace standin {

namespace {

constexpr int IconSize = 16, ButtonWidth = 160, ButtonHeight = 22;
constexpr DWORD ToolbarStyle = CCS_NORESIZE | CCS_NODIVIDER | CCS_NOPARENTALIGN | TBSTYLE_LIST;
constexpr DWORD CommonStyle = WS_CHILD | WS_VISIBLE;

}  // namespace

TaskControl::TaskControl(HWND parent, bool isOlder)
    : older(isOlder), window(CreateWindowA(older ? WC_TABCONTROLA : TOOLBARCLASSNAMEA, "",
                                           CommonStyle | (older ? TCS_BUTTONS : ToolbarStyle), 0, 0, 0, 0, parent,
                                           nullptr, nullptr, nullptr)),
      images(ImageList_Create(IconSize, IconSize, ILC_COLOR32 | ILC_MASK, 8, 8)) {
    if (older) return;
    SendMessageA(window, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageA(window, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images));
}

void TaskControl::Show(const std::vector<Tab>& tabs) const {
    while (SendMessageA(window, older ? TCM_DELETEITEM : TB_DELETEBUTTON, 0, 0)) {
    }
    ImageList_RemoveAll(images);
    for (const Tab& tab : tabs) {
        std::string title = TitleOf(tab.Window());
        if (older) {
            TCITEMA item = {};
            item.mask = TCIF_PARAM | TCIF_TEXT;
            item.pszText = title.data();
            item.lParam = static_cast<LPARAM>(tab.handle);
            SendMessageA(window, TCM_INSERTITEMA, tabs.size(), reinterpret_cast<LPARAM>(&item));
            continue;
        }
        TBBUTTON button = {};
        button.iBitmap = ImageList_ReplaceIcon(images, -1, tab.icon);
        button.fsState = TBSTATE_ENABLED;
        button.dwData = reinterpret_cast<DWORD_PTR>(&tab);
        button.iString = reinterpret_cast<INT_PTR>(title.c_str());
        SendMessageA(window, TB_ADDBUTTONSA, 1, reinterpret_cast<LPARAM>(&button));
    }
    if (!older) SendMessageA(window, TB_SETBUTTONSIZE, 0, MAKELPARAM(ButtonWidth, ButtonHeight));
}

}  // namespace standin
