#include "taskbars/task_buttons.h"

#include "common/rectangles.h"
#include "process/profile.h"
#include "taskbars/live_taskbars.h"
#include "taskbars/taskbar_theme.h"
#include "taskbars/toolbar_guard.h"
#include "taskbars/window_icon.h"

namespace halyard {

namespace {

constexpr WORD SeparatorBit = 0x8000;  // sets the id of a button's separator apart from its own
constexpr int SeparatorWidth = 3;      // pixels
constexpr DWORD ToolbarStyle = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | TBSTYLE_TRANSPARENT | TBSTYLE_LIST |
                               TBSTYLE_WRAPABLE | TBSTYLE_TOOLTIPS | CCS_NODIVIDER | CCS_NORESIZE | CCS_TOP;
static_assert(ToolbarStyle == 0x52009345);

// For messages whose lParam is not a pointer.
LRESULT Send(const SecondaryTaskbar& bar, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) noexcept {
    return AskToolbar(bar.toolbar, message, wParam, lParam);
}

template <typename Structure>
LRESULT Send(const SecondaryTaskbar& bar, UINT message, WPARAM wParam, Structure* structure) noexcept {
    return AskToolbar(bar.toolbar, message, wParam, reinterpret_cast<LPARAM>(structure));
}

void DeleteEntry(const SecondaryTaskbar& bar, WORD commandId) noexcept {
    const LRESULT index = Send(bar, TB_COMMANDTOINDEX, commandId);
    if (index >= 0) Send(bar, TB_DELETEBUTTON, static_cast<WPARAM>(index));
}

void InsertSeparator(const SecondaryTaskbar& bar, const TBBUTTON& ahead, int position) noexcept {
    TBBUTTON separator = {};
    separator.iBitmap = SeparatorWidth;
    separator.idCommand = ahead.idCommand | SeparatorBit;
    separator.fsStyle = BTNS_SEP;
    separator.dwData = ahead.dwData;
    Send(bar, TB_INSERTBUTTONA, static_cast<WPARAM>(position < 0 ? -1 : position + 1), &separator);
}

// Replaces the picture that the button has, if it has one.
bool SetButtonIcon(SecondaryTaskbar& bar, TaskButton& button, HICON icon) noexcept {
    const int image = ImageList_ReplaceIcon(bar.imageList.get(), button.image >= 0 ? button.image : -1, icon);
    if (image < 0) return false;
    button.image = image;
    TBBUTTONINFOA info = {};
    info.cbSize = sizeof(info);
    info.dwMask = TBIF_IMAGE;
    info.iImage = image;
    Send(bar, TB_SETBUTTONINFOA, button.commandId, &info);
    return true;
}

bool ShowIcon(HWND window, HICON icon) noexcept {
    bool isGood = true;
    for (unsigned index = 0; index < TaskbarCount(); ++index) {
        TaskButton* button = FindButton(TaskbarAt(index), window);
        if (button && !SetButtonIcon(TaskbarAt(index), *button, icon)) isGood = false;
    }
    return isGood;
}

// Of the bar's client area, in pixels.
LONG ButtonsWidth(const SecondaryTaskbar& bar) noexcept {
    return bar.clientWidth - (bar.more && !IsVertical(bar.shape.edge) ? OverflowWidth : 0);
}

void PlaceToolbar(const SecondaryTaskbar& bar) noexcept {
    LONG above = 0;
    if (profile.isWindows2000) {
        // The toolbar of Windows 2000 keeps a margin above its buttons, which would show as an edge.
        above = GetWindowLongA(bar.window, GWL_STYLE) & WS_BORDER ? 2 : 1;
    } else {
        // Other toolbars keep a margin above the buttons or none. The bar has no room for one.
        RECT first = {};
        if (Send(bar, TB_GETITEMRECT, 0, &first)) {
            above = first.top;
            // A themed row is as high as in the shell's own taskbar. Buttons that are lower stand in its middle.
            const LONG spare = ActiveMetrics().rowHeight - HeightOf(first);
            if (DrawsWithTheme() && !IsVertical(bar.shape.edge) && spare > 0) above -= spare / 2;
        }
    }
    const LONG below = profile.isWindows2000 ? above : 0;
    SetWindowPos(bar.toolbar, nullptr, 0, -above, ButtonsWidth(bar), bar.clientHeight + above + below,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS | SWP_NOOWNERZORDER);
}

// Whether the button is too narrow for its title.
bool IsCut(const SecondaryTaskbar& bar, const TaskButton& button) noexcept {
    constexpr LONG AroundText = 30;  // pixels of a button that the picture and the edges take
    RECT item = {};
    if (!ButtonRect(bar, button, item)) return false;
    const WindowDc dc(bar.toolbar);
    const SelectedObject font(dc.get(), reinterpret_cast<HFONT>(SendMessageA(bar.toolbar, WM_GETFONT, 0, 0)));
    SIZE size = {};
    GetTextExtentPoint32W(dc.get(), button.text.Text(), lstrlenW(button.text.Text()), &size);
    return size.cx > WidthOf(item) - AroundText;
}

void SetState(const SecondaryTaskbar& bar, const TaskButton& button, LRESULT part, bool set) noexcept {
    const LRESULT state = Send(bar, TB_GETSTATE, button.commandId);
    if (((state & part) != 0) != set) Send(bar, TB_SETSTATE, button.commandId, state ^ part);
}

}  // namespace

void CreateToolbar(SecondaryTaskbar& bar) noexcept {
    bar.toolbar = CreateWindowExA(0, TOOLBARCLASSNAMEA, "Running Applications", ToolbarStyle, 0, 0, 0, 0, bar.window,
                                  nullptr, profile.moduleInstance, nullptr);
    GuardToolbar(bar.toolbar);
    bar.imageList.Reset(
        ImageList_Create(GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON), ILC_COLOR32 | ILC_MASK, 4, 4));
    Send(bar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON));
    Send(bar, TB_SETIMAGELIST, 0, bar.imageList.get());
}

void InsertToolbarButton(SecondaryTaskbar& bar, TaskButton& button, int position) noexcept {
    TBBUTTON entry = {};
    entry.iBitmap = button.image;
    entry.idCommand = button.commandId;
    entry.fsState = TBSTATE_ENABLED;
    entry.fsStyle = BTNS_CHECK | BTNS_NOPREFIX | BTNS_SHOWTEXT;
    entry.dwData = reinterpret_cast<DWORD_PTR>(&button);
    entry.iString = reinterpret_cast<INT_PTR>(L"");
    // On Windows 2000 a separator stands after each button.
    if (profile.isWindows2000 && position > 0) position *= 2;
    if (Send(bar, TB_INSERTBUTTONA, static_cast<WPARAM>(position), &entry) && profile.isWindows2000)
        InsertSeparator(bar, entry, position);
    ShowButtonText(bar, button);
}

void DeleteToolbarButton(SecondaryTaskbar& bar, const TaskButton& button) noexcept {
    DeleteEntry(bar, button.commandId);
    if (profile.isWindows2000) DeleteEntry(bar, button.commandId | SeparatorBit);
}

void ShowButtonText(SecondaryTaskbar& bar, const TaskButton& button) noexcept {
    if (!profile.isNtFamily) {
        TBBUTTONINFOA info = {};
        info.cbSize = sizeof(info);
        info.dwMask = TBIF_TEXT;
        TextBuffer narrow = Narrow(button.text.Text());
        info.pszText = narrow.Room();
        Send(bar, TB_SETBUTTONINFOA, button.commandId, &info);
        return;
    }
    TBBUTTONINFOW info = {};
    info.cbSize = sizeof(info);
    info.dwMask = TBIF_TEXT;
    info.pszText = const_cast<wchar_t*>(button.text.Text());
    Send(bar, TB_SETBUTTONINFOW, button.commandId, &info);
}

void SizeButtons(SecondaryTaskbar& bar) noexcept {
    const ButtonSize size =
        SizeOfButtons(bar.shape, bar.buttons.Count(), ButtonsWidth(bar), DrawsWithTheme(), ActiveMetrics());
    Send(bar, TB_SETBUTTONSIZE, 0, MAKELPARAM(size.width, size.height));
    Send(bar, TB_AUTOSIZE);
    PlaceToolbar(bar);
}

void UncheckOtherButtons(SecondaryTaskbar& bar, const TaskButton* except) noexcept {
    for (const TaskButton* button : bar.buttons)
        if (button != except) SetState(bar, *button, TBSTATE_CHECKED, false);
}

void CheckButton(SecondaryTaskbar& bar, const TaskButton& button) noexcept {
    SetState(bar, button, TBSTATE_CHECKED, true);
}

void MarkButton(SecondaryTaskbar& bar, const TaskButton& button, bool mark) noexcept {
    SetState(bar, button, TBSTATE_MARKED, mark);
}

bool IsChecked(const SecondaryTaskbar& bar, const TaskButton& button) noexcept {
    return Send(bar, TB_GETSTATE, button.commandId) & TBSTATE_CHECKED;
}

void GiveButtonIcon(HWND window) noexcept {
    FindIcon(window, ShowIcon);
}

int HitTestButtons(const SecondaryTaskbar& bar, POINT point) noexcept {
    ScreenToClient(bar.toolbar, &point);
    return static_cast<int>(Send(bar, TB_HITTEST, 0, &point));
}

const TaskButton* ButtonOfEntry(const SecondaryTaskbar& bar, int entry) noexcept {
    TBBUTTONINFOA info = {};
    info.cbSize = sizeof(info);
    info.dwMask = TBIF_BYINDEX | TBIF_LPARAM;
    if (Send(bar, TB_GETBUTTONINFOA, static_cast<WPARAM>(entry), &info) < 0) return nullptr;
    return ButtonAtAddress(bar, info.lParam);
}

void GiveTip(const SecondaryTaskbar& bar, NMTBGETINFOTIPW& tip) noexcept {
    const TaskButton* button = ButtonAtAddress(bar, static_cast<ULONG_PTR>(tip.lParam));
    if (button && tip.pszText && IsCut(bar, *button)) lstrcpynW(tip.pszText, button->text.Text(), tip.cchTextMax);
}

bool ButtonRect(const SecondaryTaskbar& bar, const TaskButton& button, RECT& place) noexcept {
    const LRESULT index = Send(bar, TB_COMMANDTOINDEX, button.commandId);
    return Send(bar, TB_GETITEMRECT, static_cast<WPARAM>(index), &place) != 0;
}

bool MinimiseRect(const SecondaryTaskbar& bar, HWND window, RECT& place) noexcept {
    const TaskButton* button = FindButton(bar, window);
    RECT item = {};
    if (!button || !button->onThisDisplay || !ButtonRect(bar, *button, item)) return false;
    MapWindowPoints(bar.toolbar, nullptr, reinterpret_cast<POINT*>(&item), 2);
    place = item;
    return true;
}

}  // namespace halyard
