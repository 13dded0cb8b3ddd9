// One open key of the registry.
#pragma once

#include "common/text_buffer.h"
#include "common/win_types.h"

namespace halyard {

inline constexpr char ProductKey[] = "Software\\Tevral, Inc.\\Halyard\\";
inline constexpr DWORD StoredTextRoom = 260;  // characters of a text value that are read

// Owns the key and closes it when it goes; opening through it closes what it held first. Reads take nothing but the
// type and size that they ask for: a value of another type, or of another size where the size is fixed, counts as
// missing. Names and texts are the system's narrow ones.
class RegistryKey {
public:
    RegistryKey() noexcept = default;
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;
    ~RegistryKey() { Close(); }

    // The result of RegCloseKey, 0 if no key was open.
    LONG Close() noexcept;

    // Both answer whether the key is open now; on failure the object holds no key.
    bool Open(HKEY parent, const char* path, REGSAM access) noexcept;
    bool Create(HKEY parent, const char* path, DWORD options = REG_OPTION_NON_VOLATILE) noexcept;

    // The result of RegQueryValueExA, or ERROR_INVALID_DATA for a value of another type or size. `value` is only
    // written on success.
    LONG ReadDword(const char* name, DWORD& value) const noexcept;
    DWORD ReadDwordOr(const char* name, DWORD missing) const noexcept;
    bool ReadBool(const char* name, bool missing) const noexcept { return ReadDwordOr(name, missing ? 1 : 0) != 0; }

    // A REG_BINARY value; `size` gives the room and takes the size that was read.
    LONG ReadBytes(const char* name, void* bytes, DWORD& size) const noexcept;

    // Up to 260 characters of a REG_SZ or REG_EXPAND_SZ value; empty on failure or when the value is longer. `read`, if
    // given, takes whether there was such a value.
    TextBuffer ReadString(const char* name, bool* read = nullptr) const noexcept;

    // Writes are lost silently on failure.
    void WriteDword(const char* name, DWORD value) const noexcept;
    void WriteString(const char* name, const char* text) const noexcept;
    void WriteBytes(const char* name, const void* bytes, DWORD size) const noexcept;

    // Name of the subkey at `index`; empty past the end.
    TextBuffer SubkeyName(DWORD index) const noexcept;

    LONG DeleteSubkey(const char* name) const noexcept;

    // Deletes all subkeys, then all values, until one can't be deleted.
    void DeleteContents() const noexcept;

    void Swap(RegistryKey& other) noexcept {
        HKEY mine = key;
        key = other.key;
        other.key = mine;
    }

    HKEY get() const noexcept { return key; }
    explicit operator bool() const noexcept { return key != nullptr; }

private:
    HKEY key = nullptr;
};

}  // namespace halyard
