#include "taskbars/overflow.h"

#include "process/profile.h"
#include "resources/resource_ids.h"
#include "taskbars/task_buttons.h"

namespace halyard {

namespace {

bool AnyHidden(const SecondaryTaskbar& bar) noexcept {
    for (const TaskButton* button : bar.buttons)
        if (!FitsOnBar(bar, *button)) return true;
    return false;
}

void PlaceMore(const SecondaryTaskbar& bar) noexcept {
    const bool vertical = IsVertical(bar.shape.edge);
    const LONG left = vertical ? 0 : bar.clientWidth - OverflowWidth;
    const LONG top = vertical ? bar.clientHeight - OverflowWidth : 0;
    SetWindowPos(bar.more, HWND_TOP, left, top, bar.clientWidth - left, bar.clientHeight - top,
                 SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void MakeMore(SecondaryTaskbar& bar) noexcept {
    bar.more = CreateWindowExA(0, "BUTTON", "\xBB", WS_CHILD | BS_PUSHBUTTON, 0, 0, 0, 0, bar.window,
                               reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(IDC_MORE_TASKS)), profile.moduleInstance,
                               nullptr);
    SendMessageA(bar.more, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
}

// Whether the small button has come or gone, and with it some room.
bool UpdateOverflow(SecondaryTaskbar& bar) noexcept {
    const bool had = bar.more != nullptr;
    if (AnyHidden(bar)) {
        if (!had) MakeMore(bar);
        if (bar.more) PlaceMore(bar);
    } else if (had) {
        DestroyWindow(bar.more);
        bar.more = nullptr;
    }
    return had != (bar.more != nullptr);
}

}  // namespace

bool FitsOnBar(const SecondaryTaskbar& bar, const TaskButton& button) noexcept {
    RECT place = {};
    if (!ButtonRect(bar, button, place)) return true;
    MapWindowPoints(bar.toolbar, bar.window, reinterpret_cast<POINT*>(&place), 2);
    // A row of which more than half is seen can be clicked.
    return (place.top + place.bottom) / 2 <
           bar.clientHeight - (IsVertical(bar.shape.edge) && bar.more ? OverflowWidth : 0);
}

void LayOutButtons(SecondaryTaskbar& bar) noexcept {
    SizeButtons(bar);
    if (UpdateOverflow(bar)) SizeButtons(bar);
}

}  // namespace halyard
