// The platform's visual styles, where it has any.
#pragma once

#include "common/handles.h"

#include <uxtheme.h>

namespace halyard {

// One object per process. Each call is that of the platform's function of its name; without the theme library or the
// function it answers 0 or E_FAIL. The library is looked for once, at the first call: programs that only have the hooks
// never map it. On the server's thread.
class ThemeApi {
public:
    constexpr explicit ThemeApi(const char* file = "UxTheme.dll") noexcept : libraryFile(file) {}

    HTHEME OpenThemeData(HWND window, const wchar_t* classes) noexcept;
    HRESULT CloseThemeData(HTHEME theme) noexcept;
    HRESULT DrawThemeBackground(HTHEME theme, HDC dc, int part, int state, const RECT& bounds,
                                const RECT& clip) noexcept;
    HRESULT SetWindowTheme(HWND window, const wchar_t* program, const wchar_t* ids) noexcept;
    bool IsAppThemed() noexcept;

private:
    template <typename Function>
    Function Bind(Function& entry, const char* name) noexcept;

    const char* libraryFile;
    bool lookedFor = false;
    Library library;
    decltype(&::OpenThemeData) openThemeData = nullptr;
    decltype(&::CloseThemeData) closeThemeData = nullptr;
    decltype(&::DrawThemeBackground) drawThemeBackground = nullptr;
    decltype(&::SetWindowTheme) setWindowTheme = nullptr;
    decltype(&::IsAppThemed) isAppThemed = nullptr;
};

extern ThemeApi themeApi;

}  // namespace halyard
