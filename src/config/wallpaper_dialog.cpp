#include "config/wallpaper_dialog.h"

#include "common/entry.h"
#include "common/handles.h"
#include "common/rectangles.h"
#include "common/wide_text_buffer.h"
#include "common/window_text.h"
#include "process/profile.h"
#include "resources/resource_ids.h"

#include <commdlg.h>

namespace halyard {

namespace {

// What the user has chosen so far; the dialog has its address.
struct Choice {
    Desktop desktop;
    Library panels{LoadLibraryA("comdlg32.dll")};
};

Choice& ChoiceOf(HWND dialog) noexcept {
    return *reinterpret_cast<Choice*>(GetWindowLongPtrA(dialog, DWLP_USER));
}

// Numbers and order of WPSTYLE_.
enum Style : DWORD { Tiled = 1, Stretched = 2 };
constexpr const char* Styles[] = {"Centered", "Tiled", "Stretched"};

template <typename Character>
struct FileQuestion;
template <>
struct FileQuestion<wchar_t> {
    using Record = OPENFILENAMEW;
    static constexpr char Entry[] = "GetOpenFileNameW";
    static constexpr wchar_t Filter[] = L"Pictures\0*.bmp;*.jpg;*.jpeg;*.gif;*.png\0All files\0*.*\0";
};
template <>
struct FileQuestion<char> {
    using Record = OPENFILENAMEA;
    static constexpr char Entry[] = "GetOpenFileNameA";
    static constexpr char Filter[] = "Pictures\0*.bmp;*.jpg;*.jpeg;*.gif;*.png\0All files\0*.*\0";
};

// False when the user gave up or the platform has no such panel.
template <typename Character>
bool AskFile(HWND dialog, HMODULE panels, Character (&path)[PathRoom]) noexcept {
    using Question = FileQuestion<Character>;
    typename Question::Record record = {};
    record.lStructSize = sizeof(record);
    record.hwndOwner = dialog;
    record.lpstrFilter = Question::Filter;
    record.lpstrFile = path;
    record.nMaxFile = PathRoom;
    record.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    const auto ask = EntryOf<BOOL(WINAPI*)(typename Question::Record*)>(panels, Question::Entry);
    return ask && ask(&record);
}

void Show(HWND dialog) noexcept {
    const Desktop& desktop = ChoiceOf(dialog).desktop;
    SetWindowTextOf(GetDlgItem(dialog, IDC_WALLPAPER_FILE),
                    desktop.wallpaper.IsEmpty() ? "None" : desktop.wallpaper.Text());
    EnableWindow(GetDlgItem(dialog, IDC_WALLPAPER_STYLE), !desktop.wallpaper.IsEmpty());
    InvalidateRect(GetDlgItem(dialog, IDC_WALLPAPER_PREVIEW), nullptr, TRUE);
}

void Browse(HWND dialog) noexcept {
    Choice& choice = ChoiceOf(dialog);
    wchar_t wide[PathRoom] = {};
    char narrow[PathRoom] = {};
    if (TakesWideText() ? AskFile(dialog, choice.panels.get(), wide) : AskFile(dialog, choice.panels.get(), narrow))
        choice.desktop.wallpaper = TakesWideText() ? Narrow(wide) : TextBuffer(narrow);
    Show(dialog);
}

void AskColour(HWND dialog) noexcept {
    Choice& choice = ChoiceOf(dialog);
    static COLORREF own[16] = {};  // that the user has mixed, until the process ends
    CHOOSECOLORA record = {};
    record.lStructSize = sizeof(record);
    record.hwndOwner = dialog;
    record.rgbResult = choice.desktop.colour;
    record.lpCustColors = own;
    record.Flags = CC_RGBINIT | CC_FULLOPEN;
    const auto ask = EntryOf<BOOL(WINAPI*)(CHOOSECOLORA*)>(choice.panels.get(), "ChooseColorA");
    if (ask && ask(&record)) choice.desktop.colour = record.rgbResult;
    Show(dialog);
}

// Null for a file of another format, which the shell may be able to show all the same.
Bitmap LoadPicture(const char* path) noexcept {
    constexpr UINT FromFile = LR_LOADFROMFILE | LR_CREATEDIBSECTION;
    HANDLE picture = TakesWideText() ? LoadImageW(nullptr, WideTextBuffer(path).Text(), IMAGE_BITMAP, 0, 0, FromFile)
                                     : LoadImageA(nullptr, path, IMAGE_BITMAP, 0, 0, FromFile);
    return Bitmap(static_cast<HBITMAP>(picture));
}

// The display in small: what is a pixel there is a part of one here.
void DrawPicture(HDC target, const RECT& area, const Bitmap& picture, DWORD style) noexcept {
    BITMAP info = {};
    if (!GetObjectA(picture.get(), sizeof(info), &info)) return;
    const int width = WidthOf(area), height = HeightOf(area);
    const bool stretched = style == Stretched;
    const int across = stretched ? width : MulDiv(info.bmWidth, width, GetSystemMetrics(SM_CXSCREEN));
    const int down = stretched ? height : MulDiv(info.bmHeight, height, GetSystemMetrics(SM_CYSCREEN));
    if (across <= 0 || down <= 0) return;
    const MemoryDc source(CreateCompatibleDC(target));
    const SelectedObject selected(source.get(), picture.get());
    SetStretchBltMode(target, COLORONCOLOR);
    const bool tiled = style == Tiled;
    const int left = area.left + (tiled ? 0 : (width - across) / 2), top = area.top + (tiled ? 0 : (height - down) / 2);
    for (int y = top; y < area.bottom; y += down)
        for (int x = left; x < area.right; x += across) {
            StretchBlt(target, x, y, across, down, source.get(), 0, 0, info.bmWidth, info.bmHeight, SRCCOPY);
            if (!tiled) return;
        }
}

void Preview(HWND dialog, const DRAWITEMSTRUCT& item) noexcept {
    const Desktop& desktop = ChoiceOf(dialog).desktop;
    const Brush brush(CreateSolidBrush(desktop.colour));
    FillRect(item.hDC, &item.rcItem, brush.get());
    const Bitmap picture = LoadPicture(desktop.wallpaper.Text());
    if (!picture) return;
    IntersectClipRect(item.hDC, item.rcItem.left, item.rcItem.top, item.rcItem.right, item.rcItem.bottom);
    DrawPicture(item.hDC, item.rcItem, picture, desktop.wallpaperStyle);
}

INT_PTR OnInit(HWND dialog, LPARAM choice) noexcept {
    SetWindowLongPtrA(dialog, DWLP_USER, choice);
    for (const char* style : Styles)
        SendDlgItemMessageA(dialog, IDC_WALLPAPER_STYLE, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(style));
    SendDlgItemMessageA(dialog, IDC_WALLPAPER_STYLE, CB_SETCURSEL, ChoiceOf(dialog).desktop.wallpaperStyle, 0);
    Show(dialog);
    return TRUE;
}

void OnCommand(HWND dialog, int control) noexcept {
    Desktop& desktop = ChoiceOf(dialog).desktop;
    switch (control) {
    case IDC_WALLPAPER_BROWSE: Browse(dialog); break;
    case IDC_WALLPAPER_COLOUR: AskColour(dialog); break;
    case IDC_WALLPAPER_NONE:
        desktop.wallpaper = "";
        Show(dialog);
        break;
    case IDC_WALLPAPER_STYLE:
        desktop.wallpaperStyle =
            static_cast<DWORD>(SendDlgItemMessageA(dialog, IDC_WALLPAPER_STYLE, CB_GETCURSEL, 0, 0));
        Show(dialog);
        break;
    case IDOK:
    case IDCANCEL: EndDialog(dialog, control); break;
    }
}

INT_PTR CALLBACK WallpaperProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInit(dialog, lParam);
    case WM_DRAWITEM: Preview(dialog, *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)); return TRUE;
    case WM_COMMAND:
        if (LOWORD(wParam) != IDC_WALLPAPER_STYLE || HIWORD(wParam) == CBN_SELCHANGE) OnCommand(dialog, LOWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

}  // namespace

bool ChooseBackground(HWND owner, Desktop& background) noexcept {
    Choice choice = {background};
    const auto parameter = reinterpret_cast<LPARAM>(&choice);
    if (DialogBoxParamA(profile.moduleInstance, MAKEINTRESOURCEA(IDD_WALLPAPER), owner, WallpaperProc, parameter) !=
        IDOK)
        return false;
    background = choice.desktop;
    return true;
}

}  // namespace halyard
