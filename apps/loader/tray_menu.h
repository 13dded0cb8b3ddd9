// The menus of the icon in the notification area.
#pragma once

#include "loader/library.h"

namespace halyard::loader {

// What a menu asked for that is the resident's to do.
enum class TrayRequest { Nothing, RestoreAll, ShowTaskbars, Quit };

// The desktops with their windows. A desktop becomes current; to a window the user goes, or with Shift brings it here.
void ShowWindowsMenu(HWND owner, const Library& library) noexcept;

// The desktops, and what can be done with the system as a whole.
TrayRequest ShowMainMenu(HWND owner, const Library& library) noexcept;

}  // namespace halyard::loader
