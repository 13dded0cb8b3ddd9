#include "taskbars/theme_api.h"

#include "process/profile.h"

namespace halyard {

ThemeApi themeApi;

template <typename Function>
Function ThemeApi::Bind(Function& entry, const char* name) noexcept {
    if (!lookedFor) library.Reset(LoadLibraryA(libraryFile));
    lookedFor = true;
    if (!entry) entry = EntryOf<Function>(library.get(), name);
    return entry;
}

HTHEME ThemeApi::OpenThemeData(HWND window, const wchar_t* classes) noexcept {
    const auto entry = Bind(openThemeData, "OpenThemeData");
    return entry ? entry(window, classes) : nullptr;
}

HRESULT ThemeApi::CloseThemeData(HTHEME theme) noexcept {
    const auto entry = Bind(closeThemeData, "CloseThemeData");
    return entry ? entry(theme) : E_FAIL;
}

HRESULT ThemeApi::DrawThemeBackground(HTHEME theme, HDC dc, int part, int state, const RECT& bounds,
                                      const RECT& clip) noexcept {
    const auto entry = Bind(drawThemeBackground, "DrawThemeBackground");
    return entry ? entry(theme, dc, part, state, &bounds, &clip) : E_FAIL;
}

HRESULT ThemeApi::SetWindowTheme(HWND window, const wchar_t* program, const wchar_t* ids) noexcept {
    const auto entry = Bind(setWindowTheme, "SetWindowTheme");
    return entry ? entry(window, program, ids) : E_FAIL;
}

bool ThemeApi::IsAppThemed() noexcept {
    const auto entry = Bind(isAppThemed, "IsAppThemed");
    return entry && entry();
}

}  // namespace halyard
