#include "wizard/choices.h"

#include "autostart/autostart.h"
#include "common/wide_text_buffer.h"
#include "files/files.h"
#include "process/program_start.h"
#include "process/protocol.h"
#include "settings/registry_key.h"
#include "settings/store.h"

namespace halyard::wizard {

namespace {

struct Value {
    const char* name;
    DWORD on;         // stored for a feature that is on
    bool isProposed;  // on where nothing is stored yet
};

constexpr Value Values[FeatureCount] = {
    {"MultiDesk", 1, true},     {"TaskbarsEnable", 1, true}, {"TaskswitchMirrorEnable", 1, true},
    {"ExtendSysMenu", 1, true}, {"WindowMem", 1, true},      {"Autodock", 1, true},
    {"CtrlMax", 1, true},       {"DragTrans", 1, false},
};

constexpr unsigned NextAction = 4, PreviousAction = 5, DefaultAction = 6, DesktopActionBit = 0x40000000;

constexpr HotkeyModifiers Modifiers[] = {
    {.alt = 1, .ctrl = 1}, {.alt = 1, .ctrl = 1, .shift = 1}, {.alt = 1, .win = 1}, {.ctrl = 1, .win = 1}};

unsigned ActionOf(unsigned desktop) {
    return desktop == 0 ? DefaultAction : desktop | DesktopActionBit;
}

std::string ActionName(unsigned action) {
    return std::to_string(static_cast<int>(action));
}

HotkeyModifiers Stored(const RegistryKey& key, unsigned action) {
    BYTE bytes[sizeof(HotkeyModifiers)];
    DWORD size = sizeof(bytes);
    if (!key || key.ReadBytes(ActionName(action).c_str(), bytes, size) != ERROR_SUCCESS) return {};
    return DecodeBinding(bytes, size);
}

bool IsFree(HWND window, const HotkeyModifiers& binding) {
    constexpr int TestId = 1;
    if (!RegisterHotKey(window, TestId, RegistrationModifiers(binding), binding.key)) return false;
    UnregisterHotKey(window, TestId);
    return true;
}

// The first that no program has; none where all are taken.
HotkeyModifiers Proposed(HWND window, DWORD key) {
    for (HotkeyModifiers binding : Modifiers) {
        binding.key = key;
        if (IsFree(window, binding)) return binding;
    }
    return {};
}

std::string KeyName(UINT scanCode) {
    constexpr int Room = 32;
    const auto key = static_cast<LONG>(scanCode << 16);
    if (TakesWideText()) {
        wchar_t wide[Room] = {};
        GetKeyNameTextW(key, wide, Room);
        return Narrow(wide).Text();
    }
    char name[Room] = {};
    GetKeyNameTextA(key, name, Room);
    return name;
}

void ReadKeys(HWND window, Choices& choices) {
    RegistryKey key;
    OpenHotkeysKey(key, KeyUse::Read);
    const auto read = [&](unsigned action, DWORD proposed) {
        const HotkeyModifiers stored = Stored(key, action);
        return stored.key ? stored : Proposed(window, proposed);
    };
    choices.nextKey = read(NextAction, VK_RIGHT);
    choices.previousKey = read(PreviousAction, VK_LEFT);
    for (unsigned desktop = 0; desktop < DesktopCount; ++desktop)
        choices.desktopKeys[desktop] = read(ActionOf(desktop), '1' + desktop);
}

void ReadNames(Choices& choices) {
    RegistryKey desktops;
    const bool open = OpenDesktopsKey(desktops, KeyUse::Read);
    choices.names[0] = "Default";
    const bool any = open && !desktops.SubkeyName(0).IsEmpty();
    for (unsigned desktop = 1; desktop < DesktopCount; ++desktop) {
        RegistryKey one;
        if (open && one.Open(desktops.get(), std::to_string(desktop).c_str(), KEY_READ))
            choices.names[desktop] = one.ReadString("").Text();
        else if (!any)
            choices.names[desktop] = "Desktop " + std::to_string(desktop + 1);
    }
}

void WriteBinding(const RegistryKey& key, unsigned action, const HotkeyModifiers& binding) {
    if (binding.key) key.WriteBytes(ActionName(action).c_str(), &binding, sizeof(binding));
}

void WriteKeys(const Choices& choices) {
    RegistryKey key;
    if (!choices.usesKeys || !OpenHotkeysKey(key, KeyUse::Write)) return;
    WriteBinding(key, NextAction, choices.nextKey);
    WriteBinding(key, PreviousAction, choices.previousKey);
    for (unsigned desktop = 0; desktop < DesktopCount; ++desktop)
        if (!choices.names[desktop].empty()) WriteBinding(key, ActionOf(desktop), choices.desktopKeys[desktop]);
}

void WriteNames(const Choices& choices) {
    RegistryKey desktops;
    if (!OpenDesktopsKey(desktops, KeyUse::Write)) return;
    for (unsigned desktop = 1; desktop < DesktopCount; ++desktop) {
        RegistryKey one;
        if (!choices.names[desktop].empty() && one.Create(desktops.get(), std::to_string(desktop).c_str()))
            one.WriteString("", choices.names[desktop].c_str());
    }
}

}  // namespace

Choices ReadChoices(HWND window) {
    ChooseHive();
    Choices choices;
    RegistryKey product;
    const bool open = product.Open(ChosenHive(), ProductKey, KEY_READ);
    DWORD stored = 0;
    for (int feature = 0; feature < FeatureCount; ++feature)
        choices.features[feature] = open && product.ReadDword(Values[feature].name, stored) == ERROR_SUCCESS
                                        ? stored != 0
                                        : Values[feature].isProposed;
    ReadNames(choices);
    ReadKeys(window, choices);
    return choices;
}

void WriteChoices(const Choices& choices) {
    RegistryKey product;
    const bool open = product.Open(ChosenHive(), ProductKey, KEY_READ);
    for (int feature = 0; feature < FeatureCount; ++feature) {
        const Value& value = Values[feature];
        const bool on = choices.features[feature];
        // A kind of "on" that the user has chosen in the settings stays.
        if (!on || !open || !product.ReadDwordOr(value.name, 0)) WriteProductValue(value.name, on ? value.on : 0);
    }
    WriteProductValue("RunWizard", 1);
    WriteProductValue("Run", 1);
    if (choices.features[Desktops]) {
        WriteNames(choices);
        WriteKeys(choices);
    }
    SetAutostart(choices.autostart);
}

std::string KeyText(const HotkeyModifiers& binding) {
    if (!binding.key) return "no free hotkey";
    std::string text;
    if (binding.ctrl) text += "Ctrl + ";
    if (binding.alt) text += "Alt + ";
    if (binding.shift) text += "Shift + ";
    if (binding.win) text += "Window + ";
    if (binding.key == VK_RIGHT) return text + "Right";
    if (binding.key == VK_LEFT) return text + "Left";
    return text + KeyName(MapVirtualKeyA(binding.key, 0));
}

bool MayChoose() {
    ChooseHive();
    return CanChangeSettings();
}

void StartSystem() {
    if (HWND server = FindWindowA(ServerWindowClass, nullptr)) {
        PostMessageA(server, HM_RESTART, 1, 0);
        return;
    }
    const std::string loader = OwnFolder() + "tvlhload.exe";
    StartProgram(loader.c_str(), ('"' + loader + '"').c_str());
}

}  // namespace halyard::wizard
