// Where the configuration lies in the registry: the choice of hive, the keys below the product's, the programs' own
// keys.
#pragma once

#include "common/win_types.h"

namespace halyard {

class RegistryKey;

// Decides whether the machine's or the user's hive holds the configuration: a product key in the machine's hive turns
// the machine-wide mode on, its value `Admin` = 0 turns it off again. Outside the NT family always the user's. When the
// machine's key can't be opened the choice stays as it was, at first the user's.
void ChooseHive() noexcept;
HKEY ChosenHive() noexcept;

// Opens, and with `create` makes, this program's key below "AppMem", which lies in the user's hive always. False when
// it can't be had.
bool OpenAppKey(RegistryKey& key, bool create) noexcept;

// To read, a key only has to be there, and a user without the right to write may open it. To write, it is made where it
// is missing.
enum class KeyUse { Read, Write };

// Open "Desktops" or "HotKeys" in the chosen hive. Both answer whether the key is open.
bool OpenDesktopsKey(RegistryKey& key, KeyUse use) noexcept;
bool OpenHotkeysKey(RegistryKey& key, KeyUse use) noexcept;

// One REG_DWORD of the product's key in the chosen hive. Lost silently when the key can't be opened.
void WriteProductValue(const char* name, DWORD value) noexcept;

// The value named `name`_`index`, with the index in hexadecimal capitals, in the chosen hive.
DWORD ReadIndexedValue(DWORD index, const char* name, DWORD missing) noexcept;
void WriteIndexedValue(DWORD index, const char* name, DWORD value) noexcept;

// Whether the hooks keep out of this program.
bool IsExcluded() noexcept;
void SetExcluded() noexcept;

// Whether this user may write the configuration.
bool CanChangeSettings() noexcept;

// The program's key name: the full path of the main module with each backslash turned into a slash, since a key's name
// can't hold one. Made once per process.
const char* AppKeyName() noexcept;

}  // namespace halyard
