#include "hotkeys/hotkeys.h"

#include "process/server_call.h"
#include "settings/registry_key.h"
#include "settings/store.h"

namespace halyard {

namespace {

// Whether the list holds what is stored. Saving a list that was never loaded would delete every binding.
bool isLoaded = false;

void Load() noexcept {
    RebuildHotkeyList();
    isLoaded = true;
    RegistryKey key;
    OpenHotkeysKey(key, KeyUse::Read);
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
