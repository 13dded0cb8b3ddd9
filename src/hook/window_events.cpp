#include "hook/window_events.h"

#include "common/handles.h"
#include "hook/behaviours.h"
#include "hook/classification.h"
#include "hook/event_geometry.h"
#include "process/profile.h"
#include "process/shared_section.h"
#include "process/window_long.h"
#include "settings/settings.h"

namespace halyard {

namespace {

bool OnCreate(TrackedWindow& tracked) noexcept {
    tracked.placed = false;
    tracked.Classify();
    tracked.NotifyServer(true);
    return true;
}

bool OnDestroy(TrackedWindow& tracked) noexcept {
    // Without window memory the server isn't told; its purge finds the window gone.
    if (settings.RemembersWindows() && tracked.IsManaged()) {
        SaveWindowMemory(tracked);
        tracked.NotifyServer(false);
    }
    return false;
}

// The modelling program opens its menus at the wrong place when its frame isn't on the first display.
void KeepPopupInFrame(HWND popup) noexcept {
    if (lstrcmpiA(NormalisedClassName(popup).Text(), "PopupMenu") != 0) return;
    RECT own = {};
    RECT frame = {};
    GetWindowRect(popup, &own);
    HWND manager = FindWindowA("WMgrBasic", nullptr);
    if (!manager || !GetWindowRect(manager, &frame)) return;
    const POINT place = KeepInside(own, frame);
    SetWindowPos(popup, nullptr, place.x, place.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Once, when the window comes into sight.
void BringBack(TrackedWindow& tracked) noexcept {
    const bool remembers = settings.RemembersWindows();
    // In that program a dialog is placed later.
    tracked.placed = remembers || !profile.program.corelpp || !tracked.IsDialog();
    if (remembers) RestoreWindowMemory(tracked);
}

// A program asks for attention by a flashing caption: one that is lit although the window isn't active. The wish of a
// window that a switch has hidden is kept with it.
bool OnNcActivate(TrackedWindow& tracked, bool lit) noexcept {
    HWND window = tracked.window;
    if (!lit || !ServerWindow() || GetActiveWindow() == window || !GetPropA(window, HiddenMark)) return true;
    tracked.wishes = SetPropA(window, WishMark, window) != FALSE;
    if (tracked.wishes) PostMessageA(ServerWindow(), HM_WINDOW_WISHES, reinterpret_cast<WPARAM>(window), 0);
    return true;
}

void EndWish(TrackedWindow& tracked) noexcept {
    if (tracked.wishes) RemovePropA(tracked.window, WishMark);
    tracked.wishes = false;
}

bool OnActivate(TrackedWindow& tracked, bool active) noexcept {
    if (active) EndWish(tracked);
    // The server decides what becomes of a window that is activated although its desktop isn't to be seen.
    if (active && ServerWindow() && GetPropA(tracked.window, HiddenMark))
        PostMessageA(ServerWindow(), HM_WINDOW_CALLS, reinterpret_cast<WPARAM>(tracked.window), 0);
    if (tracked.placed || !active) return true;
    if (profile.program.modeler) KeepPopupInFrame(tracked.window);
    if (tracked.IsDialog() && !profile.program.corelpp) {
        PlaceDialog(tracked);
        tracked.placed = true;
    }
    if (!tracked.IsManaged()) return true;
    tracked.lastHitTest = 0;
    BringBack(tracked);
    return true;
}

bool OnSettingChange(TrackedWindow& tracked, WPARAM action) noexcept {
    if (action == SPI_SETWORKAREA) RefreshAfterDisplayChange(tracked);
    return true;
}

enum class Sight { Unchanged, Shown, Gone };

Sight ChangeOfSight(HWND window, UINT flags) noexcept {
    constexpr UINT StateChanged = 0x8000;  // SWP_STATECHANGED, which the headers leave out
    const auto style = static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE));
    if (style & WS_CHILD) return Sight::Unchanged;
    if ((flags & SWP_HIDEWINDOW) || ((flags & StateChanged) && (style & WS_MINIMIZE))) return Sight::Gone;
    return flags & SWP_SHOWWINDOW ? Sight::Shown : Sight::Unchanged;
}

void TellServer(HWND window, Sight change) noexcept {
    if (!ServerWindow()) return;
    const auto wParam = reinterpret_cast<WPARAM>(window);
    PostMessageA(ServerWindow(), HM_WINDOW_CHANGED, wParam, 1);
    if (change != Sight::Unchanged) PostMessageA(ServerWindow(), HM_WINDOW_SHOWN, wParam, change == Sight::Shown);
}

bool OnWindowPosChanged(TrackedWindow& tracked, const WINDOWPOS* position) noexcept {
    const Sight change = position ? ChangeOfSight(tracked.window, position->flags) : Sight::Unchanged;
    TellServer(tracked.window, change);
    // A program may activate its window before it shows it, or not at all. A window that is shown minimised comes into
    // sight later.
    if (change == Sight::Shown && tracked.wishes) FlashWindow(tracked.window, TRUE);
    const bool comes = change == Sight::Shown && !IsIconic(tracked.window);
    if (comes && !tracked.placed && tracked.IsManaged() && !tracked.IsDialog()) BringBack(tracked);
    return true;
}

// The extension is off or on by the time that the record of a window turned child is dropped.
bool OnStyleChanged(TrackedWindow& tracked, WPARAM which, const STYLESTRUCT* styles) noexcept {
    tracked.Classify();
    const bool styleProper = static_cast<int>(which) == GWL_STYLE;
    return !(styleProper && styles && (styles->styleNew & WS_CHILD));
}

bool OnDisplayChange(TrackedWindow& tracked) noexcept {
    RefreshAfterDisplayChange(tracked);
    return true;
}

// The program paints its caption buttons by its style, which lacks WS_MAXIMIZE while it spans all displays.
void RepaintCaptionButtons(HWND window) noexcept {
    RECT bounds = {};
    GetWindowRect(window, &bounds);
    const RECT buttons = CaptionButtons(bounds, {GetSystemMetrics(SM_CXFRAME), GetSystemMetrics(SM_CYFRAME),
                                                 GetSystemMetrics(SM_CXSIZE), GetSystemMetrics(SM_CYSIZE)});
    const Region region(CreateRectRgnIndirect(&buttons));
    const BorrowedStyle maximised(window, WS_MAXIMIZE);
    CallPresentProc(window, WM_NCPAINT, reinterpret_cast<WPARAM>(region.get()), 0);
}

bool OnNcHitTest(TrackedWindow& tracked, LRESULT place) noexcept {
    tracked.lastHitTest = static_cast<int>(place);
    if (profile.program.acad && tracked.maximisedAcross) RepaintCaptionButtons(tracked.window);
    return true;
}

bool OnNcPaint(TrackedWindow& tracked) noexcept {
    if (profile.program.corelpp && !tracked.placed && tracked.IsDialog()) {
        PlaceDialog(tracked);
        tracked.placed = true;
    }
    return true;
}

// The submenu of ours, or the popup of desktops in it once that submenu stands open.
bool BelongsToExtension(const TrackedWindow& tracked, HMENU menu) noexcept {
    if (!menu || !tracked.submenu) return false;
    return menu == tracked.submenu ||
           (tracked.extensionOpen && menu == GetSubMenu(tracked.submenu, GetMenuItemCount(tracked.submenu) - 1));
}

bool OnInitMenuPopup(TrackedWindow& tracked, HMENU menu, LPARAM lParam) noexcept {
    tracked.extensionOpen = BelongsToExtension(tracked, menu);
    // Wine doesn't mark the submenus of a system menu as belonging to it.
    const bool systemMenu = HIWORD(lParam) != 0 || (profile.postsMenuCommands && tracked.extensionOpen);
    if (systemMenu || profile.program.qlplay) UpdateMenuExtension(tracked, menu, lParam);
    return true;
}

bool OnEnterSizeMove(TrackedWindow& tracked) noexcept {
    if (ReadWindowLong(tracked.window, GWL_STYLE) & WS_CHILD) return false;
    BeginDragLoop(tracked);
    return true;
}

}  // namespace

bool DispatchWindowEvent(TrackedWindow& tracked, const CWPRETSTRUCT& event) noexcept {
    switch (event.message) {
    case WM_NCHITTEST: return OnNcHitTest(tracked, event.lResult);
    case WM_WINDOWPOSCHANGED: return OnWindowPosChanged(tracked, reinterpret_cast<const WINDOWPOS*>(event.lParam));
    case WM_CREATE: return OnCreate(tracked);
    case WM_DESTROY: return OnDestroy(tracked);
    case WM_ACTIVATE: return OnActivate(tracked, LOWORD(event.wParam) != WA_INACTIVE);
    case WM_SETTINGCHANGE: return OnSettingChange(tracked, event.wParam);
    case WM_STYLECHANGED:
        return OnStyleChanged(tracked, event.wParam, reinterpret_cast<const STYLESTRUCT*>(event.lParam));
    case WM_DISPLAYCHANGE: return OnDisplayChange(tracked);
    case WM_NCPAINT: return OnNcPaint(tracked);
    case WM_NCACTIVATE: return OnNcActivate(tracked, event.wParam != 0);
    case WM_INITMENUPOPUP: return OnInitMenuPopup(tracked, reinterpret_cast<HMENU>(event.wParam), event.lParam);
    case WM_ENTERSIZEMOVE: return OnEnterSizeMove(tracked);
    }
    return true;
}

}  // namespace halyard
