#include "settings/registry_key.h"

#include "common/wide_text_buffer.h"

#include <cstring>
#include <cwchar>
#include <utility>

namespace halyard {

LONG RegistryKey::Close() noexcept {
    HKEY old = std::exchange(key, nullptr);
    return old ? RegCloseKey(old) : 0;
}

bool RegistryKey::Open(HKEY parent, const char* path, REGSAM access) noexcept {
    HKEY opened = nullptr;
    const LONG result = TakesWideText() ? RegOpenKeyExW(parent, WideTextBuffer(path).Text(), 0, access, &opened)
                                        : RegOpenKeyExA(parent, path, 0, access, &opened);
    const bool good = result == ERROR_SUCCESS;
    Close();
    key = good ? opened : nullptr;
    return good;
}

bool RegistryKey::Create(HKEY parent, const char* path, DWORD options) noexcept {
    HKEY opened = nullptr;
    const LONG result =
        TakesWideText() ? RegCreateKeyExW(parent, WideTextBuffer(path).Text(), 0, nullptr, options, KEY_ALL_ACCESS,
                                          nullptr, &opened, nullptr)
                        : RegCreateKeyExA(parent, path, 0, nullptr, options, KEY_ALL_ACCESS, nullptr, &opened, nullptr);
    const bool good = result == ERROR_SUCCESS;
    Close();
    key = good ? opened : nullptr;
    return good;
}

LONG RegistryKey::ReadDword(const char* name, DWORD& value) const noexcept {
    DWORD type = 0;
    DWORD stored = 0;
    DWORD size = sizeof(stored);
    const LONG result = RegQueryValueExA(key, name, nullptr, &type, reinterpret_cast<BYTE*>(&stored), &size);
    if (result != ERROR_SUCCESS) return result;
    if (type != REG_DWORD || size != sizeof(stored)) return ERROR_INVALID_DATA;
    value = stored;
    return ERROR_SUCCESS;
}

DWORD RegistryKey::ReadDwordOr(const char* name, DWORD missing) const noexcept {
    DWORD value = missing;
    ReadDword(name, value);
    return value;
}

LONG RegistryKey::ReadBytes(const char* name, void* bytes, DWORD& size) const noexcept {
    DWORD type = 0;
    const LONG result = RegQueryValueExA(key, name, nullptr, &type, static_cast<BYTE*>(bytes), &size);
    return result == ERROR_SUCCESS && type != REG_BINARY ? ERROR_INVALID_DATA : result;
}

TextBuffer RegistryKey::ReadString(const char* name, bool* read) const noexcept {
    // One more than is asked for, so that a value stored without a zero is closed by it.
    wchar_t wide[StoredTextRoom + 1] = {};
    char narrow[StoredTextRoom + 1] = {};
    const bool isWide = TakesWideText();
    DWORD type = 0;
    DWORD size = isWide ? StoredTextRoom * sizeof(wchar_t) : StoredTextRoom;
    const LONG result = isWide ? RegQueryValueExW(key, WideTextBuffer(name).Text(), nullptr, &type,
                                                  reinterpret_cast<BYTE*>(wide), &size)
                               : RegQueryValueExA(key, name, nullptr, &type, reinterpret_cast<BYTE*>(narrow), &size);
    const bool good = result == ERROR_SUCCESS && (type == REG_SZ || type == REG_EXPAND_SZ);
    if (read) *read = good;
    if (!good) return TextBuffer();
    return isWide ? Narrow(wide) : TextBuffer(narrow);
}

void RegistryKey::WriteDword(const char* name, DWORD value) const noexcept {
    if (key) RegSetValueExA(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof(value));
}

void RegistryKey::WriteString(const char* name, const char* text) const noexcept {
    if (!key) return;
    if (!TakesWideText()) {
        RegSetValueExA(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text),
                       static_cast<DWORD>(std::strlen(text) + 1));
        return;
    }
    const WideTextBuffer wide(text);
    RegSetValueExW(key, WideTextBuffer(name).Text(), 0, REG_SZ, reinterpret_cast<const BYTE*>(wide.Text()),
                   static_cast<DWORD>((std::wcslen(wide.Text()) + 1) * sizeof(wchar_t)));
}

void RegistryKey::WriteBytes(const char* name, const void* bytes, DWORD size) const noexcept {
    if (key) RegSetValueExA(key, name, 0, REG_BINARY, static_cast<const BYTE*>(bytes), size);
}

LONG RegistryKey::DeleteSubkey(const char* name) const noexcept {
    if (!key) return ERROR_INVALID_HANDLE;
    return TakesWideText() ? RegDeleteKeyW(key, WideTextBuffer(name).Text()) : RegDeleteKeyA(key, name);
}

TextBuffer RegistryKey::SubkeyName(DWORD index) const noexcept {
    constexpr DWORD Room = 261;
    wchar_t wide[Room] = {};
    char narrow[Room] = {};
    DWORD length = Room;
    if (!TakesWideText()) {
        const LONG result = RegEnumKeyExA(key, index, narrow, &length, nullptr, nullptr, nullptr, nullptr);
        return TextBuffer(result == ERROR_SUCCESS ? narrow : "");
    }
    const LONG result = RegEnumKeyExW(key, index, wide, &length, nullptr, nullptr, nullptr, nullptr);
    return Narrow(result == ERROR_SUCCESS ? wide : L"");
}

void RegistryKey::DeleteContents() const noexcept {
    for (;;) {
        const TextBuffer name = SubkeyName(0);
        if (name.IsEmpty() || DeleteSubkey(name.Text()) != ERROR_SUCCESS) break;
    }
    for (;;) {
        // Value names may be longer than key names; the limit is the platform's.
        char value[16384];
        DWORD length = sizeof(value);
        if (RegEnumValueA(key, 0, value, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) return;
        if (RegDeleteValueA(key, value) != ERROR_SUCCESS) return;
    }
}

}  // namespace halyard
