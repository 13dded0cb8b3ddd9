#include "settings/registry_key.h"

#include <cstring>
#include <utility>

namespace halyard {

LONG RegistryKey::Close() noexcept {
    HKEY old = std::exchange(key, nullptr);
    return old ? RegCloseKey(old) : 0;
}

bool RegistryKey::Open(HKEY parent, const char* path, REGSAM access) noexcept {
    HKEY opened = nullptr;
    const bool good = RegOpenKeyExA(parent, path, 0, access, &opened) == ERROR_SUCCESS;
    Close();
    key = good ? opened : nullptr;
    return good;
}

bool RegistryKey::Create(HKEY parent, const char* path, DWORD options) noexcept {
    HKEY opened = nullptr;
    const bool good =
        RegCreateKeyExA(parent, path, 0, nullptr, options, KEY_ALL_ACCESS, nullptr, &opened, nullptr) == ERROR_SUCCESS;
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
    TextBuffer text;
    DWORD type = 0;
    DWORD size = StoredTextRoom;
    // The room has a zero behind the bytes that are asked for, so that a value stored without one is closed by it.
    bool good = text.Reserve(StoredTextRoom) != nullptr;
    if (good) {
        const LONG result = RegQueryValueExA(key, name, nullptr, &type, reinterpret_cast<BYTE*>(text.Room()), &size);
        good = result == ERROR_SUCCESS && (type == REG_SZ || type == REG_EXPAND_SZ);
    }
    if (read) *read = good;
    return good ? std::move(text) : TextBuffer();
}

void RegistryKey::WriteDword(const char* name, DWORD value) const noexcept {
    if (key) RegSetValueExA(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof(value));
}

void RegistryKey::WriteString(const char* name, const char* text) const noexcept {
    if (key)
        RegSetValueExA(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text),
                       static_cast<DWORD>(std::strlen(text) + 1));
}

void RegistryKey::WriteBytes(const char* name, const void* bytes, DWORD size) const noexcept {
    if (key) RegSetValueExA(key, name, 0, REG_BINARY, static_cast<const BYTE*>(bytes), size);
}

void RegistryKey::DeleteSubkey(const char* name) const noexcept {
    if (key) RegDeleteKeyA(key, name);
}

bool RegistryKey::SubkeyName(DWORD index, char (&name)[261]) const noexcept {
    DWORD length = sizeof(name);
    return RegEnumKeyExA(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

void RegistryKey::DeleteContents() const noexcept {
    char name[261];
    while (SubkeyName(0, name) && RegDeleteKeyA(key, name) == ERROR_SUCCESS) {
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
