#include "hook/desktop_menu.h"

#include "process/profile.h"
#include "process/shared_section.h"
#include "process/strings.h"

namespace halyard {

namespace {

bool inDesktopMenu = false;
bool configItemChosen = false;

void OnMenuOpened(HMENU menu) noexcept {
    inDesktopMenu = true;
    if (GetMenuState(menu, ConfigMenuItem, MF_BYCOMMAND) == static_cast<UINT>(-1)) {
        const TextBuffer text = LookupText(IDS_DESKTOP_MENU_ITEM);
        AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
        AppendMenuA(menu, MF_STRING, ConfigMenuItem, text.Text());
    }
    configItemChosen = false;
}

}  // namespace

void WatchDesktopMenu(const CWPRETSTRUCT& event) noexcept {
    if (!profile.desktopViewWindow || event.hwnd != profile.desktopViewWindow) return;
    switch (event.message) {
    case WM_INITMENUPOPUP: OnMenuOpened(reinterpret_cast<HMENU>(event.wParam)); break;
    case WM_MENUSELECT:
        if (inDesktopMenu) configItemChosen = LOWORD(event.wParam) == ConfigMenuItem;
        break;
    case WM_EXITMENULOOP: inDesktopMenu = false; break;
    }
}

void OnDesktopButtonUp(HWND window) noexcept {
    const bool ofMenu = profile.postsMenuCommands && inDesktopMenu;
    if (!configItemChosen || (window != profile.desktopViewWindow && !ofMenu)) return;
    configItemChosen = false;
    SendMessageA(ServerWindow(), HM_OPEN_CONFIG, 0, 0);
}

}  // namespace halyard
