#include "hotkeys/hotkey_binding.h"

#include "process/string_ids.h"

#include <cstring>
#include <initializer_list>

namespace halyard {

namespace {

constexpr DWORD BackspaceKey = 8;
constexpr DWORD DeleteKey = 46;
constexpr DWORD LastKey = 254;

// Keys whose names follow each other in the string table: no other table of function keys has a hole at F12.
struct KeyRun {
    DWORD first;
    DWORD last;
    unsigned stringId;  // of the first
};

constexpr KeyRun NamedKeys[] = {
    {13, 13, IDS_KEY_RETURN}, {19, 19, IDS_KEY_PAUSE}, {32, 32, IDS_KEY_SPACE}, {36, 40, IDS_KEY_HOME},
    {45, 46, IDS_KEY_INSERT}, {112, 122, IDS_KEY_F1},  {124, 135, IDS_KEY_F13},
};

constexpr UINT ModAlt = 1;
constexpr UINT ModControl = 2;
constexpr UINT ModShift = 4;
constexpr UINT ModWin = 8;

}  // namespace

HotkeyModifiers DecodeBinding(const BYTE* bytes, std::size_t size) noexcept {
    HotkeyModifiers binding;
    if (size != sizeof(binding)) return {};
    std::memcpy(&binding, bytes, sizeof(binding));
    if (binding.key > LastKey) return {};
    for (BYTE* flag : {&binding.alt, &binding.ctrl, &binding.shift, &binding.win})
        *flag = *flag ? 1 : 0;
    return binding;
}

bool IsSameBinding(const HotkeyModifiers& a, const HotkeyModifiers& b) noexcept {
    return std::memcmp(&a, &b, sizeof(a)) == 0;
}

bool HasModifier(const HotkeyModifiers& binding) noexcept {
    return binding.alt || binding.ctrl || binding.shift || binding.win;
}

bool ClearsBinding(const HotkeyModifiers& binding) noexcept {
    return (binding.key == BackspaceKey || binding.key == DeleteKey) && !binding.alt && !binding.ctrl && !binding.shift;
}

unsigned KeyNameId(DWORD key) noexcept {
    for (const KeyRun& run : NamedKeys)
        if (key >= run.first && key <= run.last) return run.stringId + (key - run.first);
    return 0;
}

UINT RegistrationModifiers(const HotkeyModifiers& binding) noexcept {
    return (binding.alt ? ModAlt : 0) | (binding.ctrl ? ModControl : 0) | (binding.shift ? ModShift : 0) |
           (binding.win ? ModWin : 0);
}

}  // namespace halyard
