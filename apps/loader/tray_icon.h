// The icon in the notification area: tells whether the system is on and which desktop is current, and has its menus.
#pragma once

#include "common/handles.h"
#include "loader/library.h"
#include "loader/tray_menu.h"

#include <string>

namespace halyard::loader {

// On the resident's thread; `owner` is its window. In a session without a notification area nothing is shown.
class TrayIcon {
public:
    static constexpr UINT CallbackMessage = WM_APP + 1;  // to `owner`, of what the user does with the icon
    static constexpr UINT_PTR UpdateTimer = 1;           // of `owner`

    // Nothing where the user has turned the icon off (value `TrayIcon` = 0).
    void Show(HWND ownerWindow, const Library& boundLibrary) noexcept;
    // Puts it up anew: the shell has come (back).
    void OnShellCame() noexcept;
    // Brings picture and tip in line with the state.
    void Update() noexcept;
    TrayRequest OnCallback(LPARAM event) noexcept;
    void Remove() noexcept;

private:
    bool Notify(DWORD action) noexcept;
    void TellIfBarsWereClosed() noexcept;

    HWND owner = nullptr;
    const Library* library = nullptr;
    Icon icon;
    std::string tip;
    bool wanted = false;
    bool isUp = false;
    bool hadBars = false;  // at the last update
};

}  // namespace halyard::loader
