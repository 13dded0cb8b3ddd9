#include "config/config_dialog.h"

#include "common/handles.h"
#include "common/message_wait.h"
#include "common/rectangles.h"
#include "config/pages.h"
#include "config/sheet.h"
#include "config/sprites.h"
#include "process/profile.h"
#include "process/strings.h"
#include "resources/resource_ids.h"
#include "settings/store.h"

#include <commctrl.h>
#include <prsht.h>

namespace halyard {

namespace {

constexpr DWORD EndTimeout = 5000;  // ms that the server waits for the dialog's end

volatile LONG running = 0;  // claimed by the thread that is to show the sheet, until that has ended
POINT askedFrom = {};       // the cursor's place then, in screen coordinates; set before the thread starts
Lock threadLock;
KernelHandle dialogThread;  // under the lock

struct PageTemplate {
    int dialog;
    unsigned titleId;
    DLGPROC procedure;
};

constexpr PageTemplate Pages[SheetPageCount] = {
    {IDD_WINDOWS_PAGE, IDS_PAGE_WINDOWS, WindowsPageProc},
    {IDD_TASKBARS_PAGE, IDS_PAGE_TASKBARS, TaskbarsPageProc},
    {IDD_DESKTOPS_PAGE, IDS_PAGE_DESKTOPS, DesktopsPageProc},
    {IDD_HOTKEYS_PAGE, IDS_PAGE_HOTKEYS, HotkeysPageProc},
};

// In the middle of the work area of the display where it was asked for.
void Centre(HWND window) noexcept {
    const RECT point = {askedFrom.x, askedFrom.y, askedFrom.x + 1, askedFrom.y + 1};
    MONITORINFO display = {};
    display.cbSize = sizeof(display);
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &display.rcWork, 0);
    if (profile.monitorFromRect && profile.getMonitorInfo)
        profile.getMonitorInfo(profile.monitorFromRect(&point, MONITOR_DEFAULTTONEAREST), &display);
    RECT place = {};
    GetWindowRect(window, &place);
    const RECT& area = display.rcWork;
    SetWindowPos(window, nullptr, (area.left + area.right - (place.right - place.left)) / 2,
                 (area.top + area.bottom - (place.bottom - place.top)) / 2, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Left of the buttons.
void AddAboutLine(HWND window) noexcept {
    RECT button = {};
    RECT tabs = {};
    GetWindowRect(GetDlgItem(window, IDOK), &button);
    GetWindowRect(reinterpret_cast<HWND>(SendMessageA(window, PSM_GETTABCONTROL, 0, 0)), &tabs);
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&button), 2);
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&tabs), 2);
    HWND line = CreateWindowExA(0, "Static", "Halyard " HALYARD_VERSION, WS_CHILD | WS_VISIBLE | SS_CENTERIMAGE,
                                tabs.left, button.top, button.left - tabs.left - 4, HeightOf(button), window, nullptr,
                                profile.moduleInstance, nullptr);
    SendMessageA(line, WM_SETFONT, static_cast<WPARAM>(SendMessageA(window, WM_GETFONT, 0, 0)), FALSE);
    EnableWindow(line, FALSE);
}

void OnSheetMade(HWND window) noexcept {
    sheet.window = window;
    sheet.tip = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, "tooltip window",
                                WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                                CW_USEDEFAULT, window, nullptr, profile.moduleInstance, nullptr);
    Centre(window);
    AddAboutLine(window);
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

// The records have the size that the oldest systems know; the platform goes from one to the next by it.
void ShowSheet(int firstPage) noexcept {
    TextBuffer titles[SheetPageCount];
    PROPSHEETPAGEA_V2 pages[SheetPageCount] = {};
    for (int index = 0; index < SheetPageCount; ++index) {
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
    header.nPages = SheetPageCount;
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
        ShowSheet(page >= 0 && page < SheetPageCount ? page : 0);
    }
    if (sheet.tip) DestroyWindow(sheet.tip);
    sheet.tip = nullptr;
    sheet.window = nullptr;
    for (HWND volatile& pageWindow : sheet.pages)
        pageWindow = nullptr;
    InterlockedExchange(&running, 0);
    return 0;
}

void StartThread(int page) noexcept {
    const Guard guard(threadLock.Section());
    GetCursorPos(&askedFrom);
    DWORD id = 0;
    dialogThread.Reset(
        CreateThread(nullptr, 0, DialogThread, reinterpret_cast<void*>(static_cast<INT_PTR>(page)), 0, &id));
    if (!dialogThread) InterlockedExchange(&running, 0);
}

// The sheet has a thread of its own, which may be busy: it is told, and not waited for.
void PostToPages(UINT message, bool one) noexcept {
    for (HWND volatile& page : sheet.pages)
        if (HWND window = page; window && PostMessageA(window, message, 0, 0) && one) return;
}

}  // namespace

void OpenConfigDialog(int page) noexcept {
    if (InterlockedCompareExchange(&running, 1, 0) == 0) {
        InterlockedExchange(&sheet.wantedPage, PresentPage);
        StartThread(page);
        return;
    }
    InterlockedExchange(&sheet.wantedPage, page);
    PostToPages(RaiseSheetMessage, true);
}

void RefreshPages() noexcept {
    PostToPages(RefreshPageMessage, false);
}

void DestroyConfigDialog() noexcept {
    const Guard guard(threadLock.Section());
    if (!dialogThread) return;
    // The window belongs to its own thread, which ends it as the user would; that thread may be on its way to opening
    // it, or be asking the server for something.
    constexpr DWORD Step = 50;  // ms
    const DWORD start = GetTickCount();
    do {
        if (HWND window = sheet.window) PostMessageA(window, PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
    } while (!WaitAnswering(dialogThread.get(), Step) && GetTickCount() - start < EndTimeout);
    dialogThread.Reset();
}

}  // namespace halyard
