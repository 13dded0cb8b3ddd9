#include "taskbars/docking.h"

#include "common/rectangles.h"
#include "process/protocol.h"
#include "process/shared_section.h"
#include "taskbars/app_bar.h"
#include "taskbars/overflow.h"
#include "taskbars/task_buttons.h"
#include "taskbars/taskbar_theme.h"

namespace halyard {

namespace {

constexpr LONG CursorMargin = 8;  // pixels that the cursor may be outside of a bar and still count as on it
constexpr UINT KeepPlace = SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE;

// The one that the user drags to another edge.
SecondaryTaskbar* dragTaskbar = nullptr;

// The bar that the user sizes, and how it began.
struct Sizing {
    const SecondaryTaskbar* bar = nullptr;
    RECT place = {};  // of the bar
    POINT cursor = {};
};

Sizing sizing;

// Where the cursor was when the message that is being handled was made.
POINT MessagePoint() noexcept {
    return PointOf(static_cast<LPARAM>(GetMessagePos()));
}

void MoveTo(HWND window, const RECT& place) noexcept {
    MoveWindow(window, place.left, place.top, WidthOf(place), HeightOf(place), TRUE);
}

RECT HiddenPlace(const SecondaryTaskbar& bar) noexcept {
    return HiddenBarRect(bar.displayRect, bar.shape.edge, ActiveMetrics());
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
    if (reserve) UpdateAppBar(bar, place);
    const bool same = SameRect(place, bar.windowRect);
    if (same && !force) return;
    bar.windowRect = place;
    ApplyToolbarMetrics(bar);
    // Without this, the platform would see no change of size.
    if (same) MoveWindow(bar.window, place.left, place.top, 0, 0, FALSE);
    MoveTo(bar.window, bar.hidden ? HiddenPlace(bar) : place);
}

void SetAutohide(SecondaryTaskbar& bar, bool on) noexcept {
    if (on == bar.autohide) return;
    // Only an auto-hide bar slides back.
    SlideTaskbar(bar, false);
    bar.autohide = on;
    ApplyTaskbarRect(bar, true, false);
    if (on) SetTimer(bar.window, HideTimer, HidePeriod, nullptr);
}

void SlideTaskbar(SecondaryTaskbar& bar, bool hide) noexcept {
    if (!bar.autohide || bar.hidden == hide) return;
    bar.hidden = hide;
    // The strip that remains is the bar's own, so that the cursor there brings the bar back and not a button.
    ShowWindow(bar.toolbar, hide ? SW_HIDE : SW_SHOWNA);
    if (hide) {
        MoveTo(bar.window, HiddenPlace(bar));
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
    // Another window may have the mouse by now.
    if (GetCapture() == bar.window) ReleaseCapture();
}

void ForgetDrag(const SecondaryTaskbar& bar) noexcept {
    if (dragTaskbar == &bar) dragTaskbar = nullptr;
    if (sizing.bar == &bar) sizing.bar = nullptr;
}

LRESULT HitTestBar(SecondaryTaskbar& bar, LPARAM where) noexcept {
    SlideTaskbar(bar, false);
    if (bar.shape.locked) return HTCLIENT;
    if (IsOnSizingStrip(bar.windowRect, bar.shape.edge, PointOf(where))) return SizingCode(bar.shape.edge);
    // A themed bar shows beside its buttons where they stand in the middle of their row.
    return DrawsWithTheme() ? HTCLIENT : HTNOWHERE;
}

void StartSizing(SecondaryTaskbar& bar) noexcept {
    bar.busy = true;
    sizing = {&bar, bar.windowRect, MessagePoint()};
}

void EndSizing(SecondaryTaskbar& bar) noexcept {
    bar.busy = false;
    sizing.bar = nullptr;
    ApplyTaskbarRect(bar, true, false);
}

void ConstrainSizing(SecondaryTaskbar& bar, RECT& proposed) noexcept {
    // The platform may count each step from the size that the bar was given at the one before. A row is higher than a
    // small step, which would be lost each time.
    if (sizing.bar == &bar) proposed = DraggedSize(sizing.place, bar.shape.edge, sizing.cursor, MessagePoint());
    const DWORD rows = bar.shape.rows;
    proposed = ConstrainSize(proposed, bar.displayRect, bar.autohide, bar.shape, ActiveMetrics());
    if (bar.shape.rows != rows) LayOutButtons(bar);
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
