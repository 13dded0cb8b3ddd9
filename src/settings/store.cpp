#include "settings/store.h"

#include "common/administrator.h"
#include "common/wide_text_buffer.h"
#include "process/profile.h"
#include "settings/registry_key.h"

namespace halyard {

namespace {

bool useMachineHive = false;

// Built at file scope, ahead of the load step.
struct AppKeyText {
    AppKeyText() noexcept : path(nullptr) {
        for (char* at = path.text; *at; ++at) {
            // The second byte of a double-byte character may look like a backslash.
            if (!TakesWideText() && IsDBCSLeadByte(static_cast<BYTE>(*at)) && at[1])
                ++at;
            else if (*at == '\\')
                *at = '/';
        }
    }
    ModulePath path;
};
const AppKeyText appKeyText;

bool OpenSubtree(RegistryKey& key, const char* name, KeyUse use) noexcept {
    RegistryKey root;
    if (use == KeyUse::Read)
        return root.Open(ChosenHive(), ProductKey, KEY_READ) && key.Open(root.get(), name, KEY_READ);
    return root.Create(ChosenHive(), ProductKey) && key.Create(root.get(), name);
}

struct IndexedName {
    IndexedName(const char* name, DWORD index) noexcept {
        wsprintfA(text, "%.40s_%X", name, static_cast<unsigned>(index));
    }
    char text[64];
};

}  // namespace

const char* AppKeyName() noexcept {
    return appKeyText.path.text;
}

void ChooseHive() noexcept {
    if (!profile.isNtFamily) {
        useMachineHive = false;
        return;
    }
    RegistryKey key;
    if (key.Open(HKEY_LOCAL_MACHINE, ProductKey, KEY_READ)) useMachineHive = key.ReadBool("Admin", true);
}

HKEY ChosenHive() noexcept {
    return useMachineHive ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

bool OpenAppKey(RegistryKey& key, bool create) noexcept {
    RegistryKey root;
    RegistryKey memory;
    if (create)
        return root.Create(HKEY_CURRENT_USER, ProductKey) && memory.Create(root.get(), "AppMem") &&
               key.Create(memory.get(), AppKeyName());
    // Every program asks for its key: where there is none, nothing is made.
    return root.Open(HKEY_CURRENT_USER, ProductKey, KEY_READ) && memory.Open(root.get(), "AppMem", KEY_READ) &&
           key.Open(memory.get(), AppKeyName(), KEY_ALL_ACCESS);
}

bool OpenDesktopsKey(RegistryKey& key, KeyUse use) noexcept {
    return OpenSubtree(key, "Desktops", use);
}

bool OpenHotkeysKey(RegistryKey& key, KeyUse use) noexcept {
    return OpenSubtree(key, "HotKeys", use);
}

void WriteProductValue(const char* name, DWORD value) noexcept {
    RegistryKey key;
    if (key.Create(ChosenHive(), ProductKey)) key.WriteDword(name, value);
}

DWORD ReadIndexedValue(DWORD index, const char* name, DWORD missing) noexcept {
    RegistryKey key;
    if (!key.Open(ChosenHive(), ProductKey, KEY_READ)) return missing;
    return key.ReadDwordOr(IndexedName(name, index).text, missing);
}

void WriteIndexedValue(DWORD index, const char* name, DWORD value) noexcept {
    WriteProductValue(IndexedName(name, index).text, value);
}

bool IsExcluded() noexcept {
    RegistryKey key;
    return OpenAppKey(key, false) && key.ReadBool("Excluded", false);
}

void SetExcluded() noexcept {
    RegistryKey key;
    if (OpenAppKey(key, true)) key.WriteDword("Excluded", 1);
}

bool CanChangeSettings() noexcept {
    return !profile.isNtFamily || !useMachineHive || IsUserAdministrator();
}

}  // namespace halyard
