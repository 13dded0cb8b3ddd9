// One desktop in one key of the registry.
#pragma once

#include "desktops/desktop.h"

namespace halyard {

class RegistryKey;

// Reads everything but the id; a value that is missing or damaged gives its default.
void ReadDesktop(const RegistryKey& key, Desktop& desktop) noexcept;
void WriteDesktop(const RegistryKey& key, const Desktop& desktop) noexcept;

}  // namespace halyard
