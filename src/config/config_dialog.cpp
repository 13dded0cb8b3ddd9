#include "config/config_dialog.h"

#include "common/handles.h"
#include "config/sheet.h"
#include "process/profile.h"
#include "process/shared_section.h"
#include "process/strings.h"
#include "resources/resource_ids.h"
#include "settings/store.h"

#include <commctrl.h>
#include <prsht.h>

namespace halyard {

Sheet sheet;

namespace {

constexpr int PresentPage = -1;     // raise the sheet without turning a page
constexpr DWORD EndTimeout = 5000;  // ms that the server waits for the dialog's end

volatile LONG running = 0;  // claimed by the thread that is to show the sheet, until that has ended
volatile LONG wantedPage = 0;
HANDLE dialogThread = nullptr;  // touched by the server's thread at the end, by the opener at the start
Lock threadLock;

struct PageTemplate {
    int dialog;
    unsigned titleId;
    DLGPROC procedure;
};

constexpr PageTemplate Pages[PageCount] = {
    {IDD_WINDOWS_PAGE, IDS_PAGE_WINDOWS, WindowsPageProc},
    {IDD_TASKBARS_PAGE, IDS_PAGE_TASKBARS, TaskbarsPageProc},
    {IDD_DESKTOPS_PAGE, IDS_PAGE_DESKTOPS, DesktopsPageProc},
    {IDD_HOTKEYS_PAGE, IDS_PAGE_HOTKEYS, HotkeysPageProc},
};

// The strip of pictures, ready to be copied from, for the dialog's life.
class SpriteStrip {
public:
    SpriteStrip() noexcept {
        const ScreenDc screen;
        sheet.spriteDc = CreateCompatibleDC(screen.get());
        bitmap =
            LoadImageA(profile.moduleInstance, MAKEINTRESOURCEA(IDB_SPRITES), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
        if (bitmap) old = SelectObject(sheet.spriteDc, bitmap);
    }
    SpriteStrip(const SpriteStrip&) = delete;
    SpriteStrip& operator=(const SpriteStrip&) = delete;
    ~SpriteStrip() {
        if (bitmap) {
            SelectObject(sheet.spriteDc, old);
            DeleteObject(bitmap);
        }
        DeleteDC(sheet.spriteDc);
        sheet.spriteDc = nullptr;
    }

private:
    HANDLE bitmap = nullptr;
    HGDIOBJ old = nullptr;
};

void OnSheetMade(HWND window) noexcept {
    sheet.window = window;
    sheet.tip = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, "tooltip window",
                                WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                                CW_USEDEFAULT, window, nullptr, profile.moduleInstance, nullptr);
    // A page that was asked for while the sheet was on its way.
    const LONG page = InterlockedExchange(&wantedPage, PresentPage);
    if (page != PresentPage) PostMessageA(window, PSM_SETCURSEL, static_cast<WPARAM>(page), 0);
}

// The template may be of either kind; the extended one begins with a version and a mark.
void AddSystemMenu(void* dialogTemplate) noexcept {
    struct Extended {
        WORD version;
        WORD mark;
        DWORD help;
        DWORD exStyle;
        DWORD style;
    };
    auto* extended = static_cast<Extended*>(dialogTemplate);
    DWORD& style = extended->mark == 0xFFFF ? extended->style : static_cast<DLGTEMPLATE*>(dialogTemplate)->style;
    style |= WS_SYSMENU;
}

int CALLBACK SheetCallback(HWND window, UINT message, LPARAM parameter) {
    if (message == PSCB_INITIALIZED) OnSheetMade(window);
    if (message == PSCB_PRECREATE) AddSystemMenu(reinterpret_cast<void*>(parameter));
    return 0;
}

// The records are of the size that systems of the time know, which is also the stride between them.
void ShowSheet(int firstPage) noexcept {
    TextBuffer titles[PageCount];
    PROPSHEETPAGEA_V2 pages[PageCount] = {};
    for (int index = 0; index < PageCount; ++index) {
        titles[index] = LookupText(Pages[index].titleId);
        pages[index].dwSize = sizeof(pages[index]);
        pages[index].dwFlags = PSP_USETITLE;
        pages[index].hInstance = profile.moduleInstance;
        pages[index].pszTemplate = MAKEINTRESOURCEA(Pages[index].dialog);
        pages[index].pszTitle = titles[index].Text();
        pages[index].pfnDlgProc = Pages[index].procedure;
    }
    const bool alternative = IsAlternativeBrand();
    const TextBuffer caption = LookupText(alternative ? IDS_TITLE_ALTERNATIVE : IDS_TITLE);
    PROPSHEETHEADERA header = {};
    header.dwSize = sizeof(header);
    static_assert(sizeof(void*) != 4 || (sizeof(header) == 52 && sizeof(pages[0]) == 48));
    header.dwFlags = PSH_PROPSHEETPAGE | PSH_USEICONID | PSH_USECALLBACK;
    header.hInstance = profile.moduleInstance;
    header.pszIcon = MAKEINTRESOURCEA(alternative ? IDI_HALYARD_ALTERNATIVE : IDI_HALYARD);
    header.pszCaption = caption.Text();
    header.nPages = PageCount;
    header.nStartPage = static_cast<UINT>(firstPage);
    header.ppsp = reinterpret_cast<LPCPROPSHEETPAGEA>(pages);
    header.pfnCallback = SheetCallback;
    PropertySheetA(&header);
}

DWORD WINAPI DialogThread(void* parameter) {
    const auto page = static_cast<int>(reinterpret_cast<INT_PTR>(parameter));
    InitCommonControls();
    {
        const SpriteStrip strip;
        sheet.canEdit = CanChangeSettings();
        ShowSheet(page >= 0 && page < PageCount ? page : 0);
    }
    if (sheet.tip) DestroyWindow(sheet.tip);
    sheet.tip = nullptr;
    sheet.window = nullptr;
    for (HWND volatile& pageWindow : sheet.pages)
        pageWindow = nullptr;
    InterlockedExchange(&running, 0);
    return 0;
}

void Raise(HWND window, int page) noexcept {
    if (page != PresentPage) SendMessageA(window, PSM_SETCURSEL, static_cast<WPARAM>(page), 0);
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_SHOWWINDOW);
    SetForegroundWindow(window);
}

void StartThread(int page) noexcept {
    const Guard guard(threadLock.Section());
    if (dialogThread) CloseHandle(dialogThread);
    DWORD id = 0;
    dialogThread = CreateThread(nullptr, 0, DialogThread, reinterpret_cast<void*>(static_cast<INT_PTR>(page)), 0, &id);
    if (!dialogThread) InterlockedExchange(&running, 0);
}

}  // namespace

PageState CurrentPageState() noexcept {
    return {sheet.canEdit, HooksInstalled()};
}

void OpenConfigDialog(int page) noexcept {
    if (InterlockedCompareExchange(&running, 1, 0) == 0) {
        wantedPage = PresentPage;
        StartThread(page);
        return;
    }
    HWND window = sheet.window;
    if (window)
        Raise(window, page);
    else
        InterlockedExchange(&wantedPage, page);
}

void RefreshPages() noexcept {
    if (!sheet.window) return;
    for (const SheetPage page : {WindowsPage, DesktopsPage, HotkeysPage, TaskbarsPage})
        if (HWND window = sheet.pages[page]) SendMessageA(window, RefreshPageMessage, 0, 0);
}

void DestroyConfigDialog() noexcept {
    const Guard guard(threadLock.Section());
    if (!dialogThread) return;
    // The window belongs to its own thread, which ends it as the user would; that thread may be on its way to opening
    // it, or be asking the server for something.
    const DWORD start = GetTickCount();
    while (GetTickCount() - start < EndTimeout) {
        if (HWND window = sheet.window) PostMessageA(window, PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
        constexpr DWORD Step = 50;  // ms
        if (MsgWaitForMultipleObjects(1, &dialogThread, FALSE, Step, QS_SENDMESSAGE) == WAIT_OBJECT_0) break;
        MSG message;
        PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE | (QS_SENDMESSAGE << 16));
    }
    CloseHandle(dialogThread);
    dialogThread = nullptr;
}

}  // namespace halyard
