// What the user chooses in the wizard, read from where it is stored and written back there.
#pragma once

#include "hotkeys/hotkey_binding.h"

#include <string>
#include <windows.h>

namespace halyard::wizard {

enum Feature {
    Desktops,
    Taskbars,
    TaskSwitch,
    SystemMenu,
    WindowMemory,
    Docking,
    Spanning,
    Transparency,
    FeatureCount
};

inline constexpr unsigned DesktopCount = 4;  // with the default one, which is the first

struct Choices {
    bool features[FeatureCount] = {};
    std::string names[DesktopCount];  // of the default one: as the list shows it
    HotkeyModifiers desktopKeys[DesktopCount];
    HotkeyModifiers nextKey;
    HotkeyModifiers previousKey;
    bool usesKeys = true;
    bool autostart = true;
};

// What is stored; for what isn't, a proposal. `window` tries which combinations are free, and has none afterwards.
Choices ReadChoices(HWND window);

// Desktops that have lost their names stay, and so do bindings that aren't of the wizard's.
void WriteChoices(const Choices& choices);

// "Ctrl + Alt + Right"
std::string KeyText(const HotkeyModifiers& binding);

// False for a user who may not change the configuration of this machine.
bool MayChoose();

// Turns the system on with what is stored: tells the running one, or starts it.
void StartSystem();

}  // namespace halyard::wizard
