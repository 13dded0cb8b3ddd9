// A key combination: its stored form and its rules, on plain values.
#pragma once

#include "common/win_types.h"

#include <cstddef>

namespace halyard {

// Modifiers and key of a binding. Its eight bytes are stored as they stand, the key little-endian.
struct HotkeyModifiers {
    BYTE alt = 0;  // each 0 or 1
    BYTE ctrl = 0;
    BYTE shift = 0;
    BYTE win = 0;
    DWORD key = 0;  // virtual-key code, 0 for no binding
};
static_assert(sizeof(HotkeyModifiers) == 8);

// The binding that `size` stored bytes stand for; none for fewer or more than eight, or for a key that doesn't exist.
// Any flag that isn't 0 counts as set.
HotkeyModifiers DecodeBinding(const BYTE* bytes, std::size_t size) noexcept;

bool IsSameBinding(const HotkeyModifiers& a, const HotkeyModifiers& b) noexcept;
bool HasModifier(const HotkeyModifiers& binding) noexcept;

// Backspace or Delete without Alt, Control and Shift: how a user clears a binding.
bool ClearsBinding(const HotkeyModifiers& binding) noexcept;

// String id of a key's name; 0 for a key that goes by its character, or that can't be bound.
unsigned KeyNameId(DWORD key) noexcept;

// The modifiers as RegisterHotKey takes them.
UINT RegistrationModifiers(const HotkeyModifiers& binding) noexcept;

}  // namespace halyard
