#include "taskbars/button_painting.h"

#include "process/profile.h"
#include "taskbars/taskbar_theme.h"

namespace halyard {

namespace {

constexpr int PatternSide = 8;
constexpr int ImageLeft = 4;  // pixels from the button's left side
constexpr int ImageHalf = 7;  // above its middle
constexpr int TextLeft = 24;
constexpr int TextTop = 2;

Font MakeBoldFont() noexcept {
    LOGFONTA look = {};
    SystemParametersInfoA(SPI_GETICONTITLELOGFONT, sizeof(look), &look, 0);
    look.lfWeight = FW_BOLD;
    return Font(CreateFontIndirectA(&look));
}

// A chequered pattern of white and the buttons' colour.
Brush MakeDitherBrush() noexcept {
    struct {
        BITMAPINFOHEADER header;
        RGBQUAD colours[2];
        DWORD rows[PatternSide];
    } pattern = {};
    pattern.header.biSize = sizeof(pattern.header);
    pattern.header.biWidth = PatternSide;
    pattern.header.biHeight = PatternSide;
    pattern.header.biPlanes = 1;
    pattern.header.biBitCount = 1;
    pattern.header.biClrUsed = 2;
    const COLORREF face = GetSysColor(COLOR_3DFACE);
    pattern.colours[0] = {0xFF, 0xFF, 0xFF, 0};
    pattern.colours[1] = {GetBValue(face), GetGValue(face), GetRValue(face), 0};
    for (int row = 0; row < PatternSide; ++row)
        pattern.rows[row] = row % 2 ? 0x55 : 0xAA;
    return Brush(CreateDIBPatternBrushPt(&pattern, DIB_RGB_COLORS));
}

// All of a button in the classic look.
void DrawWhole(SecondaryTaskbar& bar, HDC dc, RECT place, const TaskButton& button, UINT state) noexcept {
    const bool checked = state & CDIS_CHECKED;
    DrawEdge(dc, &place, checked || (state & CDIS_SELECTED) ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT);
    InflateRect(&place, -2, -2);
    if (checked && !bar.ditherBrush) bar.ditherBrush = MakeDitherBrush();
    FillRect(dc, &place,
             checked ? bar.ditherBrush.get() : GetSysColorBrush(state & CDIS_MARKED ? COLOR_HIGHLIGHT : COLOR_3DFACE));
    SetTextColor(dc, GetSysColor(state & CDIS_MARKED ? COLOR_HIGHLIGHTTEXT : COLOR_BTNTEXT));
    const int middle = place.top + (place.bottom - place.top) / 2;
    ImageList_Draw(bar.imageList.get(), button.image, dc, place.left + ImageLeft, middle - ImageHalf, ILD_NORMAL);
    place.left += TextLeft;
    place.top += TextTop;
    SetBkMode(dc, TRANSPARENT);
    constexpr UINT OneLine = DT_VCENTER | DT_SINGLELINE | DT_WORD_ELLIPSIS | DT_NOPREFIX;
    if (profile.isNtFamily)
        DrawTextW(dc, button.text.Text(), -1, &place, OneLine);
    else
        DrawTextA(dc, Narrow(button.text.Text()).Text(), -1, &place, OneLine);
}

LRESULT DrawItem(SecondaryTaskbar& bar, const NMCUSTOMDRAW& item) noexcept {
    const bool checked = item.uItemState & CDIS_CHECKED;
    if (!checked && !HasForeignTheme()) return CDRF_DODEFAULT;
    if (checked && !bar.boldFont) bar.boldFont = MakeBoldFont();
    const auto plain = reinterpret_cast<HFONT>(SendMessageA(bar.toolbar, WM_GETFONT, 0, 0));
    SelectObject(item.hdc, checked ? bar.boldFont.get() : plain);
    if (!profile.isWindows2000 && !HasForeignTheme()) return CDRF_NEWFONT;
    const TaskButton* button = ButtonAtAddress(bar, static_cast<ULONG_PTR>(item.lItemlParam));
    if (button) DrawWhole(bar, item.hdc, item.rc, *button, item.uItemState);
    return CDRF_SKIPDEFAULT;
}

}  // namespace

bool DrawButton(SecondaryTaskbar& bar, const NMTBCUSTOMDRAW& drawing, LRESULT& result) noexcept {
    const NMCUSTOMDRAW& item = drawing.nmcd;
    if (DrawsWithTheme()) {
        if (item.dwDrawStage != CDDS_PREPAINT) return false;
        DrawBarBackground(bar, item.hdc, item.rc);
        result = CDRF_DODEFAULT;
        return true;
    }
    if (item.dwDrawStage == CDDS_PREPAINT)
        result = CDRF_NOTIFYITEMDRAW;
    else if (item.dwDrawStage == CDDS_ITEMPREPAINT)
        result = DrawItem(bar, item);
    else
        return false;
    return true;
}

}  // namespace halyard
