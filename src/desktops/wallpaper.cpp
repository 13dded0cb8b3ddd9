#include "desktops/wallpaper.h"

#include "common/wide_text_buffer.h"
#include "process/com.h"
#include "settings/registry_key.h"

#include <cstring>
#include <cwchar>
// shlobj.h declares IActiveDesktop only if wininet.h was included before it.
#include <wininet.h>

#include <shlobj.h>

namespace halyard {

namespace {

constexpr char PanelKey[] = "Control Panel\\Desktop";
constexpr unsigned WallpaperRoom = 261;  // characters of a path, the closing zero included

constexpr GUID ActiveDesktopClass = {0x75048700, 0xEF1F, 0x11D0, {0x98, 0x88, 0x00, 0x60, 0x97, 0xDE, 0xAC, 0xF9}};
constexpr GUID ActiveDesktopInterface = {0xF490EB00, 0x1240, 0x11D1, {0x98, 0x88, 0x00, 0x60, 0x97, 0xDE, 0xAC, 0xF9}};

// The shell's object, made for one operation and released with it.
class ActiveDesktop {
public:
    ActiveDesktop() noexcept
        : object(static_cast<IActiveDesktop*>(
              CreateObject(ActiveDesktopClass, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, ActiveDesktopInterface))) {}
    ActiveDesktop(const ActiveDesktop&) = delete;
    ActiveDesktop& operator=(const ActiveDesktop&) = delete;
    ~ActiveDesktop() {
        if (object) object->Release();
    }
    explicit operator bool() const noexcept { return object != nullptr; }
    IActiveDesktop* operator->() const noexcept { return object; }

private:
    IActiveDesktop* object;
};

WALLPAPEROPT OptionsOf(const Desktop& desktop) noexcept {
    static_assert(sizeof(WALLPAPEROPT) == 8);
    return {sizeof(WALLPAPEROPT), desktop.wallpaperStyle};
}

// When the shell had to convert a picture, it reports its own copy. The file that the user chose is in the registry.
void ReadConvertedWallpaper(TextBuffer& wallpaper) noexcept {
    RegistryKey key;
    key.Open(HKEY_CURRENT_USER, PanelKey, KEY_READ);
    wallpaper = key.ReadString("Wallpaper").Text();
    bool read = false;
    const TextBuffer source = key.ReadString("ConvertedWallpaper", &read);
    if (read) wallpaper = source.Text();
}

// Where the shell has no such object, or one that does nothing as on Wine, the platform keeps the picture by itself.
void ReadPlainWallpaper(Desktop& desktop) noexcept {
    RegistryKey key;
    if (!key.Open(HKEY_CURRENT_USER, PanelKey, KEY_READ)) return;
    desktop.wallpaper = key.ReadString("Wallpaper").Text();
    const bool tiled = *key.ReadString("TileWallpaper").Text() == '1';
    const bool stretched = *key.ReadString("WallpaperStyle").Text() == '2';
    desktop.wallpaperStyle = tiled ? WPSTYLE_TILE : stretched ? WPSTYLE_STRETCH : WPSTYLE_CENTER;
}

// False: it was that already.
bool GivePlainWallpaper(const Desktop& desktop) noexcept {
    Desktop present(desktop.id, "", 0);
    ReadPlainWallpaper(present);
    if (present.wallpaperStyle == desktop.wallpaperStyle &&
        std::strcmp(present.wallpaper.Text(), desktop.wallpaper.Text()) == 0)
        return false;
    RegistryKey key;
    if (key.Open(HKEY_CURRENT_USER, PanelKey, KEY_READ | KEY_WRITE)) {
        key.WriteString("TileWallpaper", desktop.wallpaperStyle == WPSTYLE_TILE ? "1" : "0");
        key.WriteString("WallpaperStyle", desktop.wallpaperStyle == WPSTYLE_STRETCH ? "2" : "0");
    }
    if (TakesWideText()) {
        const WideTextBuffer path(desktop.wallpaper.Text());
        SystemParametersInfoW(SPI_SETDESKWALLPAPER, 0, const_cast<wchar_t*>(path.Text()), SPIF_UPDATEINIFILE);
    } else {
        SystemParametersInfoA(SPI_SETDESKWALLPAPER, 0, const_cast<char*>(desktop.wallpaper.Text()), SPIF_UPDATEINIFILE);
    }
    return true;
}

}  // namespace

void ReadWallpaper(Desktop& desktop) noexcept {
    wchar_t path[WallpaperRoom] = {};
    {
        const ActiveDesktop shell;
        WALLPAPEROPT options = OptionsOf(desktop);
        if (shell) shell->GetWallpaperOptions(&options, 0);
        if (!shell || FAILED(shell->GetWallpaper(path, WallpaperRoom, 0))) {
            ReadPlainWallpaper(desktop);
            return;
        }
        desktop.wallpaperStyle = options.dwStyle;
        path[WallpaperRoom - 1] = 0;
        desktop.wallpaper = Narrow(path);
    }
    if (std::wcsstr(path, L"Wallpaper1.bmp")) ReadConvertedWallpaper(desktop.wallpaper);
}

bool GiveWallpaper(const Desktop& desktop) noexcept {
    const ActiveDesktop shell;
    const WALLPAPEROPT options = OptionsOf(desktop);
    if (shell) shell->SetWallpaperOptions(&options, 0);
    if (!shell || FAILED(shell->SetWallpaper(WideTextBuffer(desktop.wallpaper.Text()).Text(), 0)))
        return GivePlainWallpaper(desktop);
    shell->ApplyChanges(AD_APPLY_ALL);
    return true;
}

}  // namespace halyard
