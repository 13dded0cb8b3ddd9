#include "config/page_messages.h"

#include "config/page_help.h"
#include "config/sheet.h"
#include "config/sprites.h"

#include <commctrl.h>
#include <prsht.h>

namespace halyard {

namespace {

void RaiseSheet() noexcept {
    HWND window = sheet.window;
    if (!window) return;
    const LONG wanted = InterlockedExchange(&sheet.wantedPage, PresentPage);
    if (wanted != PresentPage) SendMessageA(window, PSM_SETCURSEL, static_cast<WPARAM>(wanted), 0);
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_SHOWWINDOW);
    SetForegroundWindow(window);
}

// Of a user who may only look, nothing is taken over.
bool EndsHere(const NMHDR& notice) noexcept {
    return notice.code == PSN_APPLY && !sheet.canEdit;
}

}  // namespace

bool HandleSharedMessage(HWND page, UINT message, WPARAM wParam, LPARAM lParam, INT_PTR& result) noexcept {
    result = 0;
    if (HandleHelpMessage(page, message, wParam, lParam)) return true;
    switch (message) {
    case WM_NOTIFY: return EndsHere(*reinterpret_cast<const NMHDR*>(lParam));
    case RaiseSheetMessage: RaiseSheet(); return true;
    case WM_DESTROY: sheet.window = nullptr; break;
    case WM_DRAWITEM: result = DrawSprite(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)) ? 1 : 0; break;
    }
    return result != 0;
}

void AddPage(SheetPage index, HWND page) noexcept {
    sheet.pages[index] = page;
    // A page that was asked for while there was none to tell.
    PostMessageA(page, RaiseSheetMessage, 0, 0);
}

}  // namespace halyard
