#include "desktops/kept_background.h"

#include "desktops/desktop_storage.h"
#include "settings/registry_key.h"

namespace halyard {

namespace {

constexpr char SessionKey[] = "Software\\Tevral, Inc.\\Halyard\\Session";
constexpr char BackgroundKey[] = "Default";

}  // namespace

void KeepDefaultBackground(const Desktop& standard) noexcept {
    RegistryKey session;
    RegistryKey background;
    if (session.Create(HKEY_CURRENT_USER, SessionKey, REG_OPTION_VOLATILE) &&
        background.Create(session.get(), BackgroundKey, REG_OPTION_VOLATILE))
        WriteDesktop(background, standard);
}

void DropDefaultBackground() noexcept {
    RegistryKey session;
    if (session.Open(HKEY_CURRENT_USER, SessionKey, KEY_ALL_ACCESS)) session.DeleteSubkey(BackgroundKey);
}

bool ReadDefaultBackground(Desktop& standard) noexcept {
    RegistryKey session;
    RegistryKey background;
    if (!session.Open(HKEY_CURRENT_USER, SessionKey, KEY_READ) ||
        !background.Open(session.get(), BackgroundKey, KEY_READ))
        return false;
    const TextBuffer name = standard.name;
    ReadDesktop(background, standard);
    standard.name = name;
    return true;
}

}  // namespace halyard
