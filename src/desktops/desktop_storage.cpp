#include "desktops/desktop_storage.h"

#include "settings/registry_key.h"

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

}  // namespace halyard
