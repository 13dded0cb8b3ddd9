#include "hotkeys/hotkeys.h"

#include "desktops/desktop_list.h"
#include "displays/displays.h"
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

void DropAtom(ATOM& atom) noexcept {
    if (!atom) return;
    UnregisterHotKey(ServerWindow(), atom);
    GlobalDeleteAtom(atom);
    atom = 0;
}

void UnregisterAll() noexcept {
    for (auto& entry : hotkeyList) {
        DropAtom(entry.value->atom);
        DropAtom(entry.value->followAtom);
    }
}

// The atom is the hotkey's id; 0 where another program has the combination.
ATOM RegisterCombination(const HotkeyModifiers& binding, int number) noexcept {
    char name[32];
    wsprintfA(name, "TevralHotkeyAtom%d", number);
    const ATOM atom = GlobalAddAtomA(name);
    if (RegisterHotKey(ServerWindow(), atom, RegistrationModifiers(binding), binding.key)) return atom;
    GlobalDeleteAtom(atom);
    return 0;
}

// A move to a desktop has the combination with Shift as well, unless that is another action's.
void RegisterFollowing(Hotkey& hotkey, int& number) noexcept {
    if (!IsMoveTo(hotkey.action, MoveToDesktopActions) || hotkey.binding.shift) return;
    HotkeyModifiers following = hotkey.binding;
    following.shift = 1;
    if (ActionWithBinding(following, hotkey.action).IsEmpty())
        hotkey.followAtom = RegisterCombination(following, number++);
}

// The names of the atoms start anew each time, so that a name stays with its place.
void RegisterAll() noexcept {
    UnregisterAll();
    int number = 1;
    for (auto& entry : hotkeyList) {
        Hotkey& hotkey = *entry.value;
        hotkey.refused = false;
        if (!HooksInstalled() || !hotkey.binding.key) continue;
        hotkey.atom = RegisterCombination(hotkey.binding, number++);
        hotkey.refused = !hotkey.atom;
        RegisterFollowing(hotkey, number);
    }
}

// Registration is tied to the thread of the window, which other threads reach by a message of its own.
bool ForwardToServer(UINT message) noexcept {
    if (OnServerThread()) return false;
    SendMessageA(ServerWindow(), message, 0, 0);
    return true;
}

void AddNamedHotkey(unsigned action, unsigned stringId, const char* name) noexcept {
    // The platform's formatting writes 1024 characters at most.
    char label[1025];
    wsprintfA(label, LookupText(stringId).Text(), name);
    label[LabelRoom - 1] = 0;
    AddHotkey(action, label);
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
        AddDesktopHotkeys(desktopList.IdAt(index), desktopList.NameAt(index).Text());
    AddDisplayHotkeys();
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

void AddDesktopHotkeys(DesktopId id, const char* desktopName) noexcept {
    if (id != DefaultDesktopId) AddNamedHotkey(id | DesktopActionBit, IDS_ACTION_DESKTOP, desktopName);
    // An id that reaches into the bits of the kind has no move of its own.
    if (!(id & MoveActionMask)) AddNamedHotkey(id | MoveToDesktopActions, IDS_ACTION_MOVE_TO_DESKTOP, desktopName);
}

void AddDisplayHotkey(unsigned number) noexcept {
    char label[64];
    wsprintfA(label, LookupText(IDS_ACTION_MOVE_TO_DISPLAY).Text(), static_cast<int>(number));
    AddHotkey(number | MoveToDisplayActions, label);
}

void AddDisplayHotkeys() noexcept {
    const unsigned count = CurrentDisplays().count;
    for (unsigned number = 1; number <= count; ++number)
        AddDisplayHotkey(number);
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
