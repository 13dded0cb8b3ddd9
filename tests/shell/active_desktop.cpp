// The shell's object for wallpaper and style.
#include "shell/com_classes.h"
#include "shell/record.h"

// The shell's header declares the interface only after this one.
#include <wininet.h>

#include <shlobj.h>
#include <shlwapi.h>

namespace standin {

namespace {

constexpr GUID ActiveDesktopInterface = {0xF490EB00, 0x1240, 0x11D1, {0x98, 0x88, 0x00, 0x60, 0x97, 0xDE, 0xAC, 0xF9}};

// Wide, so that every letter is kept.
constexpr wchar_t Key[] = L"Software\\HalyardStandIn", Value[] = L"Wallpaper";

class ActiveDesktop final : public ComObject<IActiveDesktop, ActiveDesktopInterface> {
public:
    ActiveDesktop() {
        DWORD size = sizeof(wallpaper) - sizeof(wchar_t);
        SHGetValueW(HKEY_CURRENT_USER, Key, Value, nullptr, wallpaper, &size);
    }
    STDMETHODIMP ApplyChanges(DWORD flags) override {
        if (!(flags & AD_APPLY_SAVE)) return S_OK;
        SHSetValueW(HKEY_CURRENT_USER, Key, Value, REG_SZ, wallpaper, (lstrlenW(wallpaper) + 1) * sizeof(wchar_t));
        WriteNumber(WallpaperStyleValue, style);
        return S_OK;
    }
    STDMETHODIMP GetWallpaper(PWSTR path, UINT room, DWORD) override {
        lstrcpynW(path, wallpaper, static_cast<int>(room));
        return S_OK;
    }
    STDMETHODIMP SetWallpaper(PCWSTR path, DWORD) override {
        lstrcpynW(wallpaper, path, MAX_PATH);
        return S_OK;
    }
    STDMETHODIMP GetWallpaperOptions(LPWALLPAPEROPT options, DWORD) override {
        if (options->dwSize != sizeof(*options)) return E_INVALIDARG;
        options->dwStyle = style;
        return S_OK;
    }
    STDMETHODIMP SetWallpaperOptions(LPCWALLPAPEROPT options, DWORD) override {
        if (options->dwSize != sizeof(*options)) return E_INVALIDARG;
        style = options->dwStyle;
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
    wchar_t wallpaper[MAX_PATH] = {};
    DWORD style = ReadNumber(WallpaperStyleValue);
};

}  // namespace

IUnknown* MakeActiveDesktop() {
    return new ActiveDesktop;
}

}  // namespace standin
