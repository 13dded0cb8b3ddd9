// The extension of real system menus.
#pragma once

#include "behaviour_fixture.h"
#include "desktops/desktop_list.h"
#include "hook/behaviours.h"
#include "menu_lines.h"

namespace halyard::test {

inline constexpr LPARAM OfSystemMenu = MAKELPARAM(0, 1);

inline HMENU SystemMenuOf(HWND window) {
    return GetSystemMenu(window, FALSE);
}

class MenuTest : public BehaviourTest {
protected:
    MenuTest() { AddMenuExtension(window.tracked); }

    // As when the extension opens.
    void Open() { UpdateMenuExtension(window.tracked, window.tracked.submenu, OfSystemMenu); }

    static void AddDesktops(unsigned count) {
        for (unsigned index = 0; index < count; ++index)
            desktopList.Add(("Desktop " + std::to_string(index + 1)).c_str(), 10 * (index + 1));
    }

    static Lines Joined(Lines first, const Lines& second) {
        first.insert(first.end(), second.begin(), second.end());
        return first;
    }

    const KnownWindow plain;  // never gets the extension
    const Lines standard = MenuLines(SystemMenuOf(plain.get()));
    const Lines added = {"64765 -",
                         "64766 Tevral >",
                         "  64767 Window Memory",
                         "  64768 Automatic Dock",
                         "  64769 Always on top",
                         "  0 -",
                         "  64770 Move to other display"};
    KnownWindow window;
};

}  // namespace halyard::test
