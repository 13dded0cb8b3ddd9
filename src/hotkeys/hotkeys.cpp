#include "hotkeys/hotkeys.h"

#include "desktops/desktop_list.h"
#include "process/server_call.h"
#include "process/shared_section.h"
#include "process/strings.h"

#include <cstring>
#include <new>

namespace halyard {

SortedMap<Hotkey*> hotkeyList;

namespace {

struct FixedAction {
    unsigned action;
    unsigned stringId;
};

constexpr FixedAction FixedActions[] = {
    {FindCursorAction, IDS_ACTION_FIND_CURSOR},           {OpenDialogAction, IDS_ACTION_OPEN_DIALOG},
    {ToggleTopmostAction, IDS_ACTION_TOGGLE_TOPMOST},     {NextDesktopAction, IDS_ACTION_NEXT_DESKTOP},
    {PreviousDesktopAction, IDS_ACTION_PREVIOUS_DESKTOP}, {DefaultDesktopAction, IDS_ACTION_DEFAULT_DESKTOP},
};

constexpr std::size_t LabelRoom = 260;

void UnregisterAll() noexcept {
    for (auto& entry : hotkeyList) {
        Hotkey& hotkey = *entry.value;
        if (!hotkey.atom) continue;
        UnregisterHotKey(ServerWindow(), hotkey.atom);
        GlobalDeleteAtom(hotkey.atom);
        hotkey.atom = 0;
    }
}

void RegisterOne(Hotkey& hotkey, int number) noexcept {
    char name[32];
    wsprintfA(name, "TevralHotkeyAtom%d", number);
    hotkey.atom = GlobalAddAtomA(name);
    hotkey.refused =
        !RegisterHotKey(ServerWindow(), hotkey.atom, RegistrationModifiers(hotkey.binding), hotkey.binding.key);
    if (!hotkey.refused) return;
    GlobalDeleteAtom(hotkey.atom);
    hotkey.atom = 0;
}

// The names of the atoms start anew each time, so that a name stays with its place.
void RegisterAll() noexcept {
    UnregisterAll();
    int number = 1;
    for (auto& entry : hotkeyList) {
        Hotkey& hotkey = *entry.value;
        hotkey.refused = false;
        if (HooksInstalled() && hotkey.binding.key) RegisterOne(hotkey, number++);
    }
}

// Registration is tied to the thread of the window, which other threads reach by a message of its own.
bool ForwardToServer(UINT message) noexcept {
    if (OnServerThread()) return false;
    SendMessageA(ServerWindow(), message, 0, 0);
    return true;
}

void Rebuild() noexcept {
    UnregisterAll();
    for (auto& entry : hotkeyList)
        delete entry.value;
    hotkeyList.Clear();
    for (const FixedAction& fixed : FixedActions)
        AddHotkey(fixed.action, LookupText(fixed.stringId).Text());
    const unsigned count = desktopList.Count();
    for (unsigned index = 0; index < count; ++index)
        if (const DesktopId id = desktopList.IdAt(index); id != DefaultDesktopId)
            AddDesktopHotkey(id, desktopList.NameAt(index).Text());
}

}  // namespace

void RebuildHotkeyList() noexcept {
    RunOnServerThread([] { Rebuild(); });
}

void AddHotkey(unsigned action, const char* label) noexcept {
    RunOnServerThread([=] {
        if (hotkeyList.Find(action)) return;
        auto* hotkey = new (std::nothrow) Hotkey{action, label, {}};
        if (!hotkey || !hotkeyList.Insert(action, hotkey)) delete hotkey;
    });
}

void AddDesktopHotkey(DesktopId id, const char* desktopName) noexcept {
    // The platform's formatting writes 1024 characters at most.
    char label[1025];
    wsprintfA(label, LookupText(IDS_ACTION_DESKTOP).Text(), desktopName);
    label[LabelRoom - 1] = 0;
    AddHotkey(id | DesktopActionBit, label);
}

void RegisterHotkeys() noexcept {
    if (!ForwardToServer(HM_REGISTER_HOTKEYS)) RegisterAll();
}

void UnregisterHotkeys() noexcept {
    if (!ForwardToServer(HM_UNREGISTER_HOTKEYS)) UnregisterAll();
}

bool HotkeyByIndex(unsigned index, Hotkey& copy) noexcept {
    bool found = false;
    RunOnServerThread([&] {
        found = index < hotkeyList.Count();
        if (found) copy = *hotkeyList.At(index).value;
    });
    return found;
}

void SetHotkeyBinding(unsigned action, const HotkeyModifiers& binding) noexcept {
    RunOnServerThread([&] {
        Hotkey** found = hotkeyList.Find(action);
        if (!found) return;
        (*found)->binding = binding;
        (*found)->refused = false;
    });
}

TextBuffer ActionWithBinding(const HotkeyModifiers& binding, unsigned exceptAction) noexcept {
    TextBuffer label;
    if (!binding.key) return label;
    RunOnServerThread([&] {
        for (const auto& entry : hotkeyList)
            if (entry.key != exceptAction && IsSameBinding(entry.value->binding, binding)) label = entry.value->label;
    });
    return label;
}

bool FormatHotkey(TextBuffer& text, HotkeyModifiers& binding) noexcept {
    text = nullptr;
    if (binding.ctrl) text.Append(LookupText(IDS_KEY_CTRL).Text());
    if (binding.alt) text.Append(LookupText(IDS_KEY_ALT).Text());
    if (binding.shift) text.Append(LookupText(IDS_KEY_SHIFT).Text());
    if (binding.win) text.Append(LookupText(IDS_KEY_WINDOW).Text());
    if (ClearsBinding(binding)) {
        text = LookupText(IDS_KEY_NONE).Text();
        binding.key = 0;
        return true;
    }
    if (const unsigned nameId = KeyNameId(binding.key)) {
        text.Append(LookupText(nameId).Text());
    } else {
        const char character[2] = {static_cast<char>(MapVirtualKeyA(binding.key, MAPVK_VK_TO_CHAR)), 0};
        if (!character[0]) return false;
        text.Append(character);
    }
    return HasModifier(binding);
}

}  // namespace halyard
