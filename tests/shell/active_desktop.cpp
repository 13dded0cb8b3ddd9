#include "shell/active_desktop.h"

#include "shell/com_object.h"
#include "shell/record.h"

#include <new>
// The shell's header declares the interface only behind this one.
#include <wininet.h>

#include <shlobj.h>

namespace standin {

namespace {

constexpr GUID ActiveDesktopInterface = {0xF490EB00, 0x1240, 0x11D1, {0x98, 0x88, 0x00, 0x60, 0x97, 0xDE, 0xAC, 0xF9}};

std::string Shown(const std::wstring& text) {
    char narrow[MAX_PATH] = {};
    WideCharToMultiByte(CP_ACP, 0, text.c_str(), -1, narrow, sizeof(narrow) - 1, nullptr, nullptr);
    return narrow;
}

class ActiveDesktop final : public ComObject<IActiveDesktop, ActiveDesktopInterface> {
public:
    ActiveDesktop() : wallpaper(ReadWideText(WallpaperValue)), style(ReadNumber(WallpaperStyleValue)) {}

    STDMETHODIMP ApplyChanges(DWORD flags) override {
        Log("ApplyChanges " + std::to_string(flags));
        if (flags & AD_APPLY_SAVE) {
            WriteWideText(WallpaperValue, wallpaper);
            WriteNumber(WallpaperStyleValue, style);
        }
        return S_OK;
    }
    STDMETHODIMP GetWallpaper(PWSTR path, UINT room, DWORD) override {
        if (!path || room == 0) return E_INVALIDARG;
        lstrcpynW(path, wallpaper.c_str(), static_cast<int>(room));
        Log("GetWallpaper " + std::to_string(room));
        return S_OK;
    }
    STDMETHODIMP SetWallpaper(PCWSTR path, DWORD) override {
        if (!path) return E_INVALIDARG;
        wallpaper = path;
        Log("SetWallpaper " + Shown(wallpaper));
        return S_OK;
    }
    STDMETHODIMP GetWallpaperOptions(LPWALLPAPEROPT options, DWORD) override {
        if (!options || options->dwSize != sizeof(*options)) return E_INVALIDARG;
        options->dwStyle = style;
        Log("GetWallpaperOptions");
        return S_OK;
    }
    STDMETHODIMP SetWallpaperOptions(LPCWALLPAPEROPT options, DWORD) override {
        if (!options || options->dwSize != sizeof(*options)) return E_INVALIDARG;
        style = options->dwStyle;
        Log("SetWallpaperOptions " + std::to_string(style));
        return S_OK;
    }

    STDMETHODIMP GetPattern(PWSTR, UINT, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP SetPattern(PCWSTR, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetDesktopItemOptions(LPCOMPONENTSOPT, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP SetDesktopItemOptions(LPCCOMPONENTSOPT, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP AddDesktopItem(LPCCOMPONENT, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP AddDesktopItemWithUI(HWND, LPCOMPONENT, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP ModifyDesktopItem(LPCCOMPONENT, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP RemoveDesktopItem(LPCCOMPONENT, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetDesktopItemCount(int*, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetDesktopItem(int, LPCOMPONENT, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetDesktopItemByID(ULONG_PTR, LPCOMPONENT, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GenerateDesktopItemHtml(PCWSTR, LPCOMPONENT, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP AddUrl(HWND, PCWSTR, LPCOMPONENT, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetDesktopItemBySource(PCWSTR, LPCOMPONENT, DWORD) override { return E_NOTIMPL; }

private:
    ~ActiveDesktop() override { Log("Gone"); }

    std::wstring wallpaper;
    DWORD style;
};

}  // namespace

IUnknown* MakeActiveDesktop() {
    Log("New");
    return new (std::nothrow) ActiveDesktop;
}

}  // namespace standin
