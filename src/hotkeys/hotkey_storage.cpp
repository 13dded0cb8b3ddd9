#include "hotkeys/hotkey_storage.h"

#include "displays/display_set.h"
#include "hotkeys/hotkeys.h"
#include "process/server_call.h"
#include "settings/registry_key.h"
#include "settings/store.h"

namespace halyard {

namespace {

// Whether the list holds what is stored. Saving a list that was never loaded would delete every binding.
bool isLoaded = false;

// A display that isn't there now keeps what was bound to it.
void AddAbsentDisplays(const RegistryKey& key) noexcept {
    for (unsigned number = 1; number <= DisplaySet::Limit; ++number) {
        char name[16];
        wsprintfA(name, "%d", static_cast<int>(number | MoveToDisplayActions));
        BYTE bytes[sizeof(HotkeyModifiers)];
        DWORD size = sizeof(bytes);
        if (key.ReadBytes(name, bytes, size) == ERROR_SUCCESS && DecodeBinding(bytes, size).key)
            AddDisplayHotkey(number);
    }
}

void Load() noexcept {
    RebuildHotkeyList();
    isLoaded = true;
    RegistryKey key;
    OpenHotkeysKey(key, KeyUse::Read);
    if (key) AddAbsentDisplays(key);
    for (auto& entry : hotkeyList) {
        char name[16];
        wsprintfA(name, "%d", static_cast<int>(entry.key));
        BYTE bytes[sizeof(HotkeyModifiers)];
        DWORD size = sizeof(bytes);
        if (key && key.ReadBytes(name, bytes, size) == ERROR_SUCCESS) entry.value->binding = DecodeBinding(bytes, size);
    }
}

void Save() noexcept {
    RegistryKey key;
    if (!isLoaded || !OpenHotkeysKey(key, KeyUse::Write)) return;
    key.DeleteContents();
    for (const auto& entry : hotkeyList) {
        char name[16];
        wsprintfA(name, "%d", static_cast<int>(entry.key));
        key.WriteBytes(name, &entry.value->binding, sizeof(HotkeyModifiers));
    }
}

}  // namespace

void LoadHotkeys() noexcept {
    RunOnServerThread([] { Load(); });
}

void LoadHotkeysOnce() noexcept {
    RunOnServerThread([] {
        if (!isLoaded) Load();
    });
}

void SaveHotkeys() noexcept {
    RunOnServerThread([] { Save(); });
}

}  // namespace halyard
