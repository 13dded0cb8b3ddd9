#include "desktops/desktop_storage.h"

#include "desktops/desktop_list.h"
#include "desktops/desktop_rules.h"
#include "process/strings.h"
#include "settings/registry_key.h"
#include "settings/store.h"

namespace halyard {

namespace {

constexpr char NameValue[] = "";  // the key's default value
constexpr char WallpaperValue[] = "Wallpaper";
constexpr char StyleValue[] = "WallpaperStyle";
constexpr char ColourValue[] = "Colour";

}  // namespace

void ReadDesktop(const RegistryKey& key, Desktop& desktop) noexcept {
    desktop.name = key.ReadString(NameValue).Text();
    desktop.wallpaper = key.ReadString(WallpaperValue).Text();
    desktop.wallpaperStyle = key.ReadDwordOr(StyleValue, 0);
    desktop.colour = key.ReadDwordOr(ColourValue, GetSysColor(COLOR_BACKGROUND));
}

void WriteDesktop(const RegistryKey& key, const Desktop& desktop) noexcept {
    key.WriteString(NameValue, desktop.name.Text());
    key.WriteString(WallpaperValue, desktop.wallpaper.Text());
    key.WriteDword(StyleValue, desktop.wallpaperStyle);
    key.WriteDword(ColourValue, desktop.colour);
}

void DesktopList::Load() noexcept {
    RegistryKey desktops;
    OpenDesktopsKey(desktops);
    const TextBuffer defaultName = LookupText(IDS_DEFAULT_DESKTOP_NAME);

    const Guard guard(lock.Section());
    Insert(DefaultDesktopId, defaultName.Text());
    RemoveAllButDefault();
    char name[261];
    for (DWORD index = 0; desktops && desktops.SubkeyName(index, name); ++index) {
        const DesktopId id = DesktopIdOfKey(name);
        if (id == DefaultDesktopId) continue;
        RegistryKey stored;
        if (!stored.Open(desktops.get(), name, KEY_ALL_ACCESS)) return;
        if (Desktop* desktop = Insert(id, nullptr)) ReadDesktop(stored, *desktop);
    }
}

void DesktopList::Save() noexcept {
    RegistryKey desktops;
    OpenDesktopsKey(desktops);
    desktops.DeleteContents();
    const Guard guard(lock.Section());
    for (const auto& entry : records)
        SaveDesktop(*entry.value, desktops);
}

void DesktopList::SaveDesktop(const Desktop& desktop, const RegistryKey& desktops) noexcept {
    if (desktop.id == DefaultDesktopId) return;
    char name[16];
    wsprintfA(name, "%d", static_cast<int>(desktop.id));
    RegistryKey key;
    if (key.Create(desktops.get(), name)) WriteDesktop(key, desktop);
}

}  // namespace halyard
