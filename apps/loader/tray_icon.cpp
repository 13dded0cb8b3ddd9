#include "loader/tray_icon.h"

#include "common/entry.h"
#include "common/wide_text_buffer.h"
#include "loader/desktops.h"
#include "loader/taskbars.h"
#include "loader/tray_menu.h"
#include "settings/registry_key.h"
#include "settings/store.h"

#include <shellapi.h>

namespace halyard::loader {

namespace {

constexpr UINT IconId = 1;
constexpr UINT UpdatePeriod = 500;  // ms
constexpr int TipRoom = 64;

// The library of the notification area has no wide form on the oldest systems.
BOOL NotifyWide(DWORD action, NOTIFYICONDATAW& data, DWORD size) noexcept {
    const auto notify = EntryOf<decltype(&Shell_NotifyIconW)>(GetModuleHandleA("shell32.dll"), "Shell_NotifyIconW");
    data.cbSize = size;
    return notify && notify(action, &data);
}

// A small plate with the number on it: coloured while the system is on, else grey.
Icon DrawIcon(unsigned number, bool on) noexcept {
    const int width = GetSystemMetrics(SM_CXSMICON);
    const int height = GetSystemMetrics(SM_CYSMICON);
    const ScreenDc screen;
    const MemoryDc dc(CreateCompatibleDC(screen.get()));
    const Bitmap colour(CreateCompatibleBitmap(screen.get(), width, height));
    const Bitmap mask(CreateBitmap(width, height, 1, 1, nullptr));
    RECT plate = {0, 0, width, height};
    {
        const SelectedObject target(dc.get(), mask.get());
        PatBlt(dc.get(), 0, 0, width, height, BLACKNESS);
    }
    {
        LOGFONTA look = {};
        look.lfHeight = -height * 3 / 4;
        look.lfWeight = FW_BOLD;
        const Font font(CreateFontIndirectA(&look));
        const Brush brush(CreateSolidBrush(on ? RGB(31, 111, 160) : RGB(128, 128, 128)));
        const SelectedObject target(dc.get(), colour.get());
        const SelectedObject written(dc.get(), font.get());
        FillRect(dc.get(), &plate, brush.get());
        SetBkMode(dc.get(), TRANSPARENT);
        SetTextColor(dc.get(), RGB(255, 255, 255));
        const std::string text = std::to_string(number);
        DrawTextA(dc.get(), text.c_str(), -1, &plate, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    }
    ICONINFO info = {};
    info.fIcon = TRUE;
    info.hbmColor = colour.get();
    info.hbmMask = mask.get();
    return Icon(CreateIconIndirect(&info));
}

bool IsWanted() noexcept {
    ChooseHive();
    RegistryKey key;
    return !key.Open(ChosenHive(), ProductKey, KEY_READ) || key.ReadBool("TrayIcon", true);
}

}  // namespace

void TrayIcon::Show(HWND ownerWindow, const Library& boundLibrary) noexcept {
    owner = ownerWindow;
    library = &boundLibrary;
    wanted = IsWanted();
    if (!wanted) return;
    Update();
    SetTimer(owner, UpdateTimer, UpdatePeriod, nullptr);
}

void TrayIcon::OnShellCame() noexcept {
    isUp = false;
    tip.clear();
    if (wanted) Update();
}

void TrayIcon::TellIfBarsWereClosed() noexcept {
    const bool had = hadBars;
    hadBars = AreTaskbarsShown();
    if (!had || hadBars || StateOfTaskbars(*library) != Taskbars::Closed || !isUp || !TakesWideText() ||
        !TakeTaskbarsHint())
        return;
    NOTIFYICONDATAW data = {};
    data.hWnd = owner;
    data.uID = IconId;
    data.uFlags = NIF_INFO;
    data.dwInfoFlags = NIIF_INFO;
    lstrcpynW(data.szInfoTitle, L"The taskbars are closed", 64);
    lstrcpynW(data.szInfo, L"\"Show taskbars\" in the menu of this icon brings them back.", 256);
    NotifyWide(NIM_MODIFY, data, NOTIFYICONDATAW_V2_SIZE);
}

void TrayIcon::Update() noexcept {
    TellIfBarsWereClosed();
    unsigned place = 1;
    const NamedDesktop current = CurrentOf(*library, place);
    const bool on = library->isEnabled() != 0;
    std::string now = on ? "Halyard: " + current.name + " (desktop " + std::to_string(place) + ")" : "Halyard is off";
    if (isUp && now == tip) return;
    tip = std::move(now);
    icon = DrawIcon(place, on);
    isUp = Notify(isUp ? NIM_MODIFY : NIM_ADD);
}

bool TrayIcon::Notify(DWORD action) noexcept {
    NOTIFYICONDATAW data = {};
    data.hWnd = owner;
    data.uID = IconId;
    data.uFlags = NIF_ICON | NIF_MESSAGE | NIF_TIP;
    data.uCallbackMessage = CallbackMessage;
    data.hIcon = icon.get();
    lstrcpynW(data.szTip, WideTextBuffer(tip.c_str()).Text(), TipRoom);
    if (TakesWideText()) return NotifyWide(action, data, NOTIFYICONDATAW_V1_SIZE) != FALSE;
    NOTIFYICONDATAA narrow = {};
    narrow.cbSize = NOTIFYICONDATAA_V1_SIZE;
    narrow.hWnd = data.hWnd;
    narrow.uID = data.uID;
    narrow.uFlags = data.uFlags;
    narrow.uCallbackMessage = data.uCallbackMessage;
    narrow.hIcon = data.hIcon;
    lstrcpynA(narrow.szTip, tip.c_str(), TipRoom);
    return Shell_NotifyIconA(action, &narrow) != FALSE;
}

TrayRequest TrayIcon::OnCallback(LPARAM event) noexcept {
    if (event == WM_LBUTTONUP) ShowWindowsMenu(owner, *library);
    if (event == WM_RBUTTONUP) return ShowMainMenu(owner, *library);
    return TrayRequest::Nothing;
}

void TrayIcon::Remove() noexcept {
    if (wanted) KillTimer(owner, UpdateTimer);
    if (isUp) Notify(NIM_DELETE);
    isUp = false;
    wanted = false;
}

}  // namespace halyard::loader
