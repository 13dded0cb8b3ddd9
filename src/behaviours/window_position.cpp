#include "behaviours/window_position.h"

#include "behaviours/geometry.h"
#include "behaviours/placement.h"
#include "displays/displays.h"
#include "process/profile.h"
#include "process/shared_section.h"
#include "process/window_long.h"

namespace halyard {

namespace {

constexpr UINT PlainMove = SWP_NOSIZE | SWP_NOZORDER | SWP_NOOWNERZORDER;

bool DisplayInfo(HMONITOR display, MONITORINFO& info) noexcept {
    info = {};
    info.cbSize = sizeof(info);
    return GetMonitorInfoA(display, &info) != FALSE;
}

struct RectSearch {
    HWND except;
    RECT rect;
    bool found;
};

BOOL CALLBACK CompareRect(HWND window, LPARAM lParam) noexcept {
    auto& search = *reinterpret_cast<RectSearch*>(lParam);
    RECT rect = {};
    search.found = window != search.except && GetWindowRect(window, &rect) && SameRect(rect, search.rect);
    return !search.found;
}

void MoveMaximised(HWND window, DWORD style, LONG dx, LONG dy, const RECT& workArea) noexcept {
    WINDOWPLACEMENT placement = PlacementOf(window);
    placement.rcNormalPosition = Shifted(placement.rcNormalPosition, dx, dy);
    // The system maximises a window on the display that it lies on: it is brought there as a normal one.
    SetWindowLongA(window, GWL_STYLE, static_cast<LONG>(style & ~WS_MAXIMIZE));
    SetWindowPos(window, nullptr, workArea.left, workArea.top, WidthOf(workArea), HeightOf(workArea),
                 SWP_NOZORDER | SWP_NOOWNERZORDER | SWP_NOSENDCHANGING);
    SetPlacement(window, placement);
    SendMessageA(window, WM_SYSCOMMAND, SC_MAXIMIZE, 0);
}

unsigned IndexOfOwnDisplay(const DisplaySet& set, HWND window) noexcept {
    return set.IndexOf(HandleBits(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST)));
}

void MoveBetween(HWND window, const RECT& from, const RECT& to) noexcept {
    const LONG dx = to.left - from.left;
    const LONG dy = to.top - from.top;
    const auto style = static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE));
    if (style & WS_MAXIMIZE) {
        MoveMaximised(window, style, dx, dy, to);
        return;
    }
    RECT rect = {};
    if (GetWindowRect(window, &rect)) SetWindowPos(window, nullptr, rect.left + dx, rect.top + dy, 0, 0, PlainMove);
}

}  // namespace

void MoveToNextDisplay(HWND window) noexcept {
    const DisplaySet set = CurrentDisplays();
    const unsigned index = IndexOfOwnDisplay(set, window);
    if (index != DisplaySet::None)
        MoveBetween(window, set.displays[index].workArea, set.displays[set.NextOf(index)].workArea);
}

void MoveToNumberedDisplay(HWND window, unsigned number) noexcept {
    const DisplaySet set = CurrentDisplays();
    const unsigned index = IndexOfOwnDisplay(set, window);
    const auto* target = set.Numbered(number);
    if (index != DisplaySet::None && target && target != &set.displays[index])
        MoveBetween(window, set.displays[index].workArea, target->workArea);
}

void CentreOnRect(HWND window, const RECT& target, WINDOWPOS* move) noexcept {
    RECT rect = {};
    if (!GetWindowRect(window, &rect)) return;
    const POINT place = CentredOn(rect, target, WorkBounds());
    if (!move) {
        SetWindowPos(window, nullptr, place.x, place.y, 0, 0, PlainMove);
        return;
    }
    move->x = place.x;
    move->y = place.y;
    move->flags &= ~static_cast<UINT>(SWP_NOMOVE);
}

void CentreOnParent(HWND window, WINDOWPOS* move) noexcept {
    HWND parent = GetParent(window);
    RECT target = {};
    if (GetWindowRect(parent ? parent : GetDesktopWindow(), &target)) CentreOnRect(window, target, move);
}

void CentreOnDisplay(HWND window, HMONITOR display, WINDOWPOS* move) noexcept {
    MONITORINFO info;
    if (DisplayInfo(display, info)) CentreOnRect(window, info.rcWork, move);
}

void CentreOnOwnDisplay(HWND window, WINDOWPOS* move) noexcept {
    RECT rect = {};
    if (GetWindowRect(window, &rect))
        CentreOnDisplay(window, MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), move);
}

void CentreOnNumberedDisplay(HWND window, DWORD number, WINDOWPOS* move) noexcept {
    RefreshDisplays();
    const DisplaySet set = CurrentDisplays();
    if (const auto* display = set.Numbered(number)) CentreOnRect(window, display->workArea, move);
}

bool HasVisibleParent(HWND window) noexcept {
    HWND parent = GetParent(window);
    return parent && parent != GetDesktopWindow() && parent != profile.progmanWindow && IsWindowVisible(parent);
}

void SetTopmost(HWND window, bool topmost) noexcept {
    SetWindowPos(window, topmost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
}

void ToggleTopmost(HWND window) noexcept {
    SetWindowPos(window, IsTopmost(window) ? HWND_NOTOPMOST : HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
}

bool IsTopmost(HWND window) noexcept {
    return (ReadWindowLong(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
}

bool SameRectWindowExists(HWND window, const RECT& rect) noexcept {
    RectSearch search = {window, rect, false};
    EnumWindows(CompareRect, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

RECT WithinReach(const RECT& rect) noexcept {
    if (!profile.monitorFromRect || profile.monitorFromRect(&rect, MONITOR_DEFAULTTONULL)) return rect;
    MONITORINFO info;
    return DisplayInfo(profile.monitorFromRect(&rect, MONITOR_DEFAULTTONEAREST), info) ? BroughtInto(rect, info.rcWork)
                                                                                       : rect;
}

}  // namespace halyard
