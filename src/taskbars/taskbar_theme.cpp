#include "taskbars/taskbar_theme.h"

#include "common/rectangles.h"
#include "process/profile.h"
#include "taskbars/theme_api.h"
#include "taskbars/toolbar_guard.h"

namespace halyard {

namespace {

// All bars share one look.
struct Look {
    HTHEME theme = nullptr;  // of the class "TASKBAR"; null where nothing of it is to be had
    const TaskbarMetrics* metrics = &ClassicMetrics;
};

Look look;

// The window and its client area, relative to the window's top left corner.
struct FrameRects {
    explicit FrameRects(HWND window) noexcept {
        GetWindowRect(window, &whole);
        GetClientRect(window, &client);
        POINT corner = {};
        ClientToScreen(window, &corner);
        client = Shifted(client, corner.x - whole.left, corner.y - whole.top);
        whole = Shifted(whole, -whole.left, -whole.top);
    }
    RECT whole = {};
    RECT client = {};
};

}  // namespace

bool DrawsWithTheme() noexcept {
    return look.theme != nullptr;
}

bool HasForeignTheme() noexcept {
    return !look.theme && themeApi.IsAppThemed();
}

const TaskbarMetrics& ActiveMetrics() noexcept {
    return *look.metrics;
}

void ReloadTheme() noexcept {
    if (look.theme) themeApi.CloseThemeData(look.theme);
    look.theme = nullptr;
    if (themeApi.IsAppThemed()) look.theme = themeApi.OpenThemeData(nullptr, L"TASKBAR");
    // Visual styles that have nothing for taskbars leave them to the classic look.
    look.metrics = look.theme ? &ThemedMetrics : &ClassicMetrics;
}

void ApplyTheme(SecondaryTaskbar& bar) noexcept {
    if (look.theme)
        themeApi.SetWindowTheme(bar.toolbar, IsVertical(bar.shape.edge) ? L"TaskbandVert" : L"Taskband", L"Toolbar");
    DWORD style = ActiveMetrics().windowStyle;
    if (profile.isWindows2000) style &= ~WS_BORDER;
    SetWindowLongA(bar.window, GWL_STYLE, static_cast<LONG>(style));
    ApplyToolbarMetrics(bar);
}

void ApplyToolbarMetrics(SecondaryTaskbar& bar) noexcept {
    if (profile.isWindows2000) return;
    const TaskbarMetrics& metrics = ActiveMetrics();
    TBMETRICS block = {};
    block.cbSize = sizeof(block);
    block.dwMask = TBMF_PAD | TBMF_BARPAD | TBMF_BUTTONSPACING;
    block.cxPad = metrics.paddingX;
    block.cyPad = metrics.paddingY;
    block.cxBarPad = metrics.barPaddingX;
    block.cyBarPad = metrics.barPaddingY;
    block.cxButtonSpacing = metrics.spacingX;
    block.cyButtonSpacing = look.theme && IsVertical(bar.shape.edge) ? ThemedVerticalSpacing : metrics.spacingY;
    AskToolbar(bar.toolbar, TB_SETMETRICS, 0, reinterpret_cast<LPARAM>(&block));
}

void DrawBarBackground(const SecondaryTaskbar& bar, HDC dc, const RECT& bounds) noexcept {
    if (look.theme)
        themeApi.DrawThemeBackground(look.theme, dc, BackgroundPart(bar.shape.edge), 0, bounds, bounds);
    else
        FillRect(dc, &bounds, GetSysColorBrush(COLOR_3DFACE));
}

bool HasSizingStrip(const SecondaryTaskbar& bar) noexcept {
    return !bar.shape.locked && DrawsWithTheme();
}

bool DrawSizingStrip(const SecondaryTaskbar& bar) noexcept {
    if (!look.theme) return false;
    const FrameRects rects(bar.window);
    const Region frame(CreateRectRgnIndirect(&rects.whole));
    const Region client(CreateRectRgnIndirect(&rects.client));
    CombineRgn(frame.get(), frame.get(), client.get(), RGN_XOR);
    const WindowDc dc(bar.window);
    ExtSelectClipRgn(dc.get(), frame.get(), RGN_AND);
    themeApi.DrawThemeBackground(look.theme, dc.get(), SizingPart(bar.shape.edge), 0, rects.whole, rects.whole);
    SelectClipRgn(dc.get(), nullptr);
    return true;
}

}  // namespace halyard
