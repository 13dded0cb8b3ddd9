// Global hotkeys: the actions, what is bound to them, and their registration.
#pragma once

#include "common/sorted_map.h"
#include "common/text_buffer.h"
#include "hotkeys/hotkey_binding.h"
#include "process/protocol.h"

namespace halyard {

enum HotkeyAction : unsigned {
    FindCursorAction = 1,
    OpenDialogAction = 2,
    ToggleTopmostAction = 3,
    NextDesktopAction = 4,
    PreviousDesktopAction = 5,
    DefaultDesktopAction = 6,
    DesktopActionBit = 0x40000000,      // set: the other bits are the id of the desktop to go to
    MoveToDesktopActions = 0x80000000,  // plus the desktop's id: the window in front goes there
    MoveToDisplayActions = 0xA0000000,  // plus the display's number: the window in front goes there
};
inline constexpr unsigned MoveActionMask = 0xE0000000;  // tells the two kinds of moves; the rest is id or number

constexpr bool IsMoveTo(unsigned action, unsigned kind) noexcept {
    return (action & MoveActionMask) == kind;
}

struct Hotkey {
    unsigned action;
    TextBuffer label;
    HotkeyModifiers binding;
    ATOM atom = 0;         // the hotkey id while registered, else 0
    ATOM followAtom = 0;   // of the same combination with Shift, for a move that the user follows
    bool refused = false;  // the system didn't take it at the last registering: another program has it
};

// In order of action id. Filled and changed in the server process, on the server's thread only; it owns its records.
// The operations below hand themselves over to that thread and wait for it, so that any thread of the process may call
// them.
extern SortedMap<Hotkey*> hotkeyList;

// Empties the list and fills it with the fixed actions, one for each desktop but the default one, and the moves of the
// window in front, all unbound.
void RebuildHotkeyList() noexcept;

// An action that is in the list keeps its record.
void AddHotkey(unsigned action, const char* label) noexcept;

// The ways to a desktop, and of a window to it. The default desktop is reached by an action of its own.
void AddDesktopHotkeys(DesktopId id, const char* desktopName) noexcept;

void AddDisplayHotkey(unsigned number) noexcept;

// One for each display that there is; those of displays that have gone stay.
void AddDisplayHotkeys() noexcept;

// Only while the hooks are in; what can't be registered stays bound and is marked as refused.
void RegisterHotkeys() noexcept;
void UnregisterHotkeys() noexcept;

// Copies the record at a place; false past the end.
bool HotkeyByIndex(unsigned index, Hotkey& copy) noexcept;

// Nothing for an unknown action. Takes effect at the next registering.
void SetHotkeyBinding(unsigned action, const HotkeyModifiers& binding) noexcept;

// Label of another action that has the same binding; empty when there is none, or for no binding.
TextBuffer ActionWithBinding(const HotkeyModifiers& binding, unsigned exceptAction) noexcept;

// The text of a combination. Answers whether it can be bound: a key alone can't. A combination that clears the binding
// gets the key 0, and can. Any thread.
bool FormatHotkey(TextBuffer& text, HotkeyModifiers& binding) noexcept;

}  // namespace halyard
