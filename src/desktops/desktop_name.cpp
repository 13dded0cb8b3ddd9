#include "desktops/desktop_name.h"

#include "common/handles.h"
#include "common/rectangles.h"
#include "common/row.h"
#include "common/text_buffer.h"
#include "common/window_class.h"
#include "common/window_text.h"
#include "displays/displays.h"

namespace halyard {

namespace {

enum SignTimer : UINT_PTR { ShowTimer = 1, EndTimer };
constexpr UINT ShowDelay = 150;  // ms; windows that come after it lie above it on X
constexpr UINT ShowTime = 900;   // ms
constexpr int DisplayPart = 24;  // the letters are this part of the display's height

struct NameSign {
    Row<HWND> windows;
    TextBuffer text;
};

NameSign sign;

Font MakeFont(int displayHeight) noexcept {
    LOGFONTA look = {};
    look.lfHeight = -(displayHeight / DisplayPart);
    look.lfWeight = FW_BOLD;
    lstrcpynA(look.lfFaceName, "Tahoma", LF_FACESIZE);
    return Font(CreateFontIndirectA(&look));
}

int DisplayHeightOf(HWND window) noexcept {
    return static_cast<int>(GetWindowLongPtrA(window, GWLP_USERDATA));
}

void Paint(HWND window) noexcept {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(window, &paint);
    RECT client = {};
    GetClientRect(window, &client);
    {
        const Font font = MakeFont(DisplayHeightOf(window));
        const SelectedObject selected(dc, font.get());
        FillRect(dc, &client, GetSysColorBrush(COLOR_INFOBK));
        SetBkMode(dc, TRANSPARENT);
        SetTextColor(dc, GetSysColor(COLOR_INFOTEXT));
        DrawTextIn(dc, sign.text.Text(), client,
                   DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    }
    EndPaint(window, &paint);
}

void Show() noexcept {
    for (HWND window : sign.windows) {
        SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
        UpdateWindow(window);
    }
}

// The first window has the timers of all.
void OnTimer(HWND window, WPARAM timer) noexcept {
    KillTimer(window, timer);
    if (timer == EndTimer) {
        HideDesktopName();
        return;
    }
    Show();
    SetTimer(window, EndTimer, ShowTime, nullptr);
}

LRESULT CALLBACK NameWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_PAINT: Paint(window); return 0;
    case WM_MOUSEACTIVATE: return MA_NOACTIVATE;
    case WM_LBUTTONDOWN: HideDesktopName(); return 0;
    case WM_TIMER: OnTimer(window, wParam); return 0;
    case WM_CLOSE: return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

WindowClass nameClass("TevralHalyardNameWndClass", NameWndProc);

// As wide as the text needs, at most the work area, in its middle.
RECT PlaceFor(const DisplaySet::Display& display) noexcept {
    const int height = HeightOf(display.bounds);
    RECT text = {};
    {
        const ScreenDc screen;
        const Font font = MakeFont(height);
        const SelectedObject selected(screen.get(), font.get());
        DrawTextIn(screen.get(), sign.text.Text(), text, DT_SINGLELINE | DT_CALCRECT | DT_NOPREFIX);
    }
    const RECT& area = display.workArea;
    const LONG margin = height / DisplayPart;
    const LONG width = std::min(WidthOf(text) + 2 * margin, WidthOf(area));
    const LONG tall = HeightOf(text) + margin;
    const LONG left = area.left + (WidthOf(area) - width) / 2;
    const LONG top = area.top + (HeightOf(area) - tall) / 2;
    return {left, top, left + width, top + tall};
}

void MakeSign(const DisplaySet::Display& display) noexcept {
    HWND window = nameClass.Create(GetModuleHandleA(nullptr), WS_EX_TOOLWINDOW | WS_EX_TOPMOST, WS_POPUP | WS_BORDER,
                                   PlaceFor(display));
    if (!window) return;
    SetWindowLongPtrA(window, GWLP_USERDATA, HeightOf(display.bounds));
    sign.windows.Add(window);
}

}  // namespace

void ShowDesktopName(const char* name) noexcept {
    HideDesktopName();
    sign.text = name;
    RefreshDisplays();
    const DisplaySet set = CurrentDisplays();
    for (unsigned index = 0; index < set.count; ++index)
        MakeSign(set.displays[index]);
    if (sign.windows.Count() > 0) SetTimer(sign.windows[0], ShowTimer, ShowDelay, nullptr);
}

void HideDesktopName() noexcept {
    for (HWND window : sign.windows)
        DestroyWindow(window);
    sign.windows.Clear();
    nameClass.Unregister();
}

}  // namespace halyard
