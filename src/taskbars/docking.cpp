#include "taskbars/docking.h"

#include "common/rectangles.h"
#include "process/protocol.h"
#include "process/shared_section.h"
#include "taskbars/app_bar.h"
#include "taskbars/task_buttons.h"
#include "taskbars/taskbar_manager.h"
#include "taskbars/taskbar_theme.h"

namespace halyard {

namespace {

constexpr LONG CursorMargin = 8;  // pixels that the cursor may be outside of a bar and still count as on it
constexpr UINT KeepPlace = SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE;

// The one that the user drags to another edge.
SecondaryTaskbar* dragTaskbar = nullptr;

POINT PointOf(LPARAM lParam) noexcept {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

void MoveTo(HWND window, const RECT& place) noexcept {
    MoveWindow(window, place.left, place.top, WidthOf(place), HeightOf(place), TRUE);
}

void TellAppBar(const SecondaryTaskbar& bar, DWORD message, const RECT& place = {}) noexcept {
    APPBARDATA data = {};
    data.hWnd = bar.window;
    data.uCallbackMessage = AppBarCallback;
    data.uEdge = bar.shape.edge;
    data.rc = place;
    CallAppBar(message, data);
}

HWND LayerOf(const SecondaryTaskbar& bar) noexcept {
    return bar.onTop ? HWND_TOPMOST : HWND_TOP;
}

}  // namespace

RECT ComputeTaskbarRect(const SecondaryTaskbar& bar) noexcept {
    return BarRect(bar.displayRect, bar.shape, ActiveMetrics());
}

void ApplyTaskbarRect(SecondaryTaskbar& bar, bool reserve, bool force) noexcept {
    const RECT place = ComputeTaskbarRect(bar);
    // Bars of one edge would be stacked by the platform; each has its display for itself, and stands as computed.
    if (reserve) TellAppBar(bar, ABM_SETPOS, place);
    const bool same = SameRect(place, bar.windowRect);
    if (same && !force) return;
    bar.windowRect = place;
    ApplyToolbarMetrics(bar);
    // Otherwise the platform would see no change of size.
    if (same) MoveWindow(bar.window, place.left, place.top, 0, 0, FALSE);
    MoveTo(bar.window, place);
}

void SetAutohide(SecondaryTaskbar& bar, bool on) noexcept {
    if (on && !bar.autohide) {
        ApplyTaskbarRect(bar, false, false);
        TellAppBar(bar, ABM_REMOVE);
        bar.hidden = false;
        SetTimer(bar.window, HideTimer, HidePeriod, nullptr);
    } else if (!on && bar.autohide) {
        // Only an auto-hide bar slides back.
        SlideTaskbar(bar, false);
        TellAppBar(bar, ABM_NEW);
        ApplyTaskbarRect(bar, true, false);
    }
    bar.autohide = on;
}

void ReleaseSpace(const SecondaryTaskbar& bar) noexcept {
    TellAppBar(bar, ABM_REMOVE);
}

void SlideTaskbar(SecondaryTaskbar& bar, bool hide) noexcept {
    if (!bar.autohide || bar.hidden == hide) return;
    bar.hidden = hide;
    if (hide) {
        MoveTo(bar.window, HiddenBarRect(bar.displayRect, bar.shape.edge, ActiveMetrics()));
        return;
    }
    SetWindowPos(bar.window, LayerOf(bar), 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
    MoveTo(bar.window, bar.windowRect);
    SetTimer(bar.window, HideTimer, HidePeriod, nullptr);
}

bool TryHideTaskbar(SecondaryTaskbar& bar) noexcept {
    if (bar.busy) return false;
    POINT cursor = {};
    GetCursorPos(&cursor);
    RECT nearby = bar.windowRect;
    InflateRect(&nearby, CursorMargin, CursorMargin);
    if (PtInRect(&nearby, cursor)) return false;
    SlideTaskbar(bar, true);
    return true;
}

void SetRaised(SecondaryTaskbar& bar, bool fullScreen) noexcept {
    if (fullScreen) {
        SetWindowPos(bar.window, HWND_BOTTOM, 0, 0, 0, 0, KeepPlace);
        bar.raised = false;
    } else if (!bar.raised) {
        if (!bar.onTop) SetWindowPos(bar.window, HWND_NOTOPMOST, 0, 0, 0, 0, KeepPlace);
        ApplyOnTop(bar);
        bar.raised = true;
    }
}

void ApplyOnTop(const SecondaryTaskbar& bar) noexcept {
    SetWindowPos(bar.window, LayerOf(bar), 0, 0, 0, 0, KeepPlace);
}

void StartDrag(SecondaryTaskbar& bar) noexcept {
    POINT cursor = {};
    GetCursorPos(&cursor);
    if (bar.shape.locked || HitTestButtons(bar, cursor) >= 0) return;
    dragTaskbar = &bar;
    bar.busy = true;
    SetCapture(bar.window);
}

void ContinueDrag(HWND window, LPARAM where) noexcept {
    if (!dragTaskbar) return;
    POINT point = PointOf(where);
    ClientToScreen(window, &point);
    const DWORD edge = EdgeAt(dragTaskbar->displayRect, point);
    if (edge == dragTaskbar->shape.edge) return;
    dragTaskbar->shape.edge = edge;
    ApplyTaskbarRect(*dragTaskbar, false, false);
}

void EndDrag() noexcept {
    if (!dragTaskbar) return;
    SecondaryTaskbar& bar = *dragTaskbar;
    dragTaskbar = nullptr;
    bar.busy = false;
    ApplyTaskbarRect(bar, true, false);
    ReleaseCapture();
}

void ForgetDrag(const SecondaryTaskbar& bar) noexcept {
    if (dragTaskbar == &bar) dragTaskbar = nullptr;
}

LRESULT HitTestBar(SecondaryTaskbar& bar, LPARAM where) noexcept {
    SlideTaskbar(bar, false);
    if (bar.shape.locked) return HTCLIENT;
    // A themed bar sets the strip apart, and all else of it is the toolbar's.
    if (DrawsWithTheme()) return SizingCode(bar.shape.edge);
    return IsOnSizingStrip(bar.windowRect, bar.shape.edge, PointOf(where)) ? SizingCode(bar.shape.edge) : HTNOWHERE;
}

void ConstrainSizing(SecondaryTaskbar& bar, RECT& proposed) noexcept {
    const DWORD rows = bar.shape.rows;
    proposed = ConstrainSize(proposed, bar.displayRect, bar.autohide, bar.shape, ActiveMetrics());
    if (bar.shape.rows != rows) SizeButtons(bar);
}

void OnAppBarNotice(SecondaryTaskbar& bar, WPARAM notice, LPARAM lParam) noexcept {
    if (notice == ABN_POSCHANGED) {
        ReadPrimaryTaskbarRect();
        ApplyTaskbarRect(bar, true, false);
        PostMessageA(ServerWindow(), WM_DISPLAYCHANGE, 0, 0);
        PostMessageA(ServerWindow(), HM_REFRESH_EXTRAS, 0, 0);
    } else if (notice == ABN_FULLSCREENAPP) {
        SetRaised(bar, lParam != 0);
    }
}

}  // namespace halyard
