#include "desktops/wallpaper.h"

#include "common/wide_text_buffer.h"
#include "process/com.h"
#include "settings/registry_key.h"

#include <cwchar>
// shlobj.h declares IActiveDesktop only if wininet.h was included before it.
#include <wininet.h>

#include <shlobj.h>

namespace halyard {

namespace {

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
    key.Open(HKEY_CURRENT_USER, "Control Panel\\Desktop", KEY_READ);
    wallpaper = key.ReadString("Wallpaper").Text();
    bool read = false;
    const TextBuffer source = key.ReadString("ConvertedWallpaper", &read);
    if (read) wallpaper = source.Text();
}

}  // namespace

bool ReadWallpaper(Desktop& desktop) noexcept {
    wchar_t path[WallpaperRoom] = {};
    {
        const ActiveDesktop shell;
        if (!shell) return false;
        WALLPAPEROPT options = OptionsOf(desktop);
        shell->GetWallpaperOptions(&options, 0);
        desktop.wallpaperStyle = options.dwStyle;
        shell->GetWallpaper(path, WallpaperRoom, 0);
        path[WallpaperRoom - 1] = 0;
        desktop.wallpaper = Narrow(path);
    }
    if (std::wcsstr(path, L"Wallpaper1.bmp")) ReadConvertedWallpaper(desktop.wallpaper);
    return true;
}

bool GiveWallpaper(const Desktop& desktop) noexcept {
    const ActiveDesktop shell;
    if (!shell) return false;
    const WALLPAPEROPT options = OptionsOf(desktop);
    shell->SetWallpaperOptions(&options, 0);
    shell->SetWallpaper(WideTextBuffer(desktop.wallpaper.Text()).Text(), 0);
    shell->ApplyChanges(AD_APPLY_ALL);
    return true;
}

}  // namespace halyard
