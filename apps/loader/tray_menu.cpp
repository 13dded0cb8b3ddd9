#include "loader/tray_menu.h"

#include "common/entry.h"
#include "common/handles.h"
#include "common/wide_text_buffer.h"
#include "common/window_text.h"
#include "files/files.h"
#include "loader/desktops.h"
#include "loader/start_self.h"
#include "loader/taskbars.h"
#include "process/protocol.h"

#include <shellapi.h>

#include <string>
#include <vector>

namespace halyard::loader {

namespace {

enum Item : UINT {
    EnabledItem = 1,
    PropertiesItem,
    TaskbarsItem,
    RestoreItem,
    ProgramsItem,
    HelpItem,
    AboutItem,
    ExitItem,
    FirstDesktopItem = 100,
    FirstWindowItem = 2000
};

struct ListedWindow {
    HWND window;
    unsigned desktop;
    std::string title;
};

struct Listing {
    unsigned current;
    std::vector<ListedWindow> windows;
};

// Windows that a user knows: with a title and a caption, on no other's behalf; hidden ones only where the system hid
// them.
BOOL CALLBACK List(HWND window, LPARAM target) {
    auto& listing = *reinterpret_cast<Listing*>(target);
    const auto mark = reinterpret_cast<ULONG_PTR>(GetPropA(window, HiddenMark));
    const LONG style = GetWindowLongA(window, GWL_STYLE);
    const bool isKnown = (style & WS_CAPTION) == WS_CAPTION && !GetWindow(window, GW_OWNER) &&
                         !(GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW);
    if (!isKnown || (!mark && !(style & WS_VISIBLE))) return TRUE;
    const TextBuffer title = WindowTextOf(window);
    if (title.IsEmpty()) return TRUE;
    listing.windows.push_back({window, mark ? static_cast<unsigned>(mark - 1) : listing.current, title.Text()});
    return TRUE;
}

UINT Track(HWND owner, HMENU menu) noexcept {
    POINT cursor = {};
    GetCursorPos(&cursor);
    // A menu of a window that isn't active would stay when the user clicks elsewhere.
    SetForegroundWindow(owner);
    return static_cast<UINT>(
        TrackPopupMenuEx(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, cursor.x, cursor.y, owner, nullptr));
}

void AppendDesktop(HMENU menu, const NamedDesktop& desktop, std::size_t index, unsigned current) {
    AppendMenuText(menu, MF_STRING | (desktop.id == current ? MF_CHECKED : 0), FirstDesktopItem + index,
                   WithoutMenuMarks(desktop.name.c_str()).Text());
}

void GoTo(const Library& library, const ListedWindow& target) noexcept {
    HWND server = library.getServerHwnd();
    const unsigned current = CurrentDesktop(library);
    if (GetKeyState(VK_SHIFT) < 0)
        SendMessageA(server, HM_WINDOW_ATTACH, reinterpret_cast<WPARAM>(target.window), static_cast<LPARAM>(current));
    else if (target.desktop != current)
        library.setActiveDesktop(target.desktop);
    SetForegroundWindow(target.window);
}

// In a process of its own: it looks into all others, which takes a while.
void ShowPrograms() noexcept {
    DWORD id = 0;
    const KernelHandle started = StartSelf(" --programs", id);
}

// The pages lie beside the folders of the bitnesses. False where there are none, or nothing to show them.
bool OpenGuide(HWND owner) {
    const std::string page = OwnFolder() + "..\\guide\\index.html";
    constexpr INT_PTR LastError = 32;  // of the numbers that the call gives in the place of a handle
    if (!TakesWideText())
        return reinterpret_cast<INT_PTR>(ShellExecuteA(owner, "open", page.c_str(), nullptr, nullptr, SW_SHOWNORMAL)) >
               LastError;
    using ShellExecuteFn = decltype(&ShellExecuteW);
    const auto open = EntryOf<ShellExecuteFn>(GetModuleHandleA("shell32.dll"), "ShellExecuteW");
    const WideTextBuffer path(page.c_str());
    return FileExists(page) && open &&
           reinterpret_cast<INT_PTR>(open(owner, L"open", path.Text(), nullptr, nullptr, SW_SHOWNORMAL)) > LastError;
}

void ShowHelp(HWND owner) noexcept {
    if (OpenGuide(owner)) return;
    MessageBoxA(owner,
                "Left click: the desktops with their windows. With Shift, a window comes to this desktop.\n"
                "Right click: desktops, settings, and the way out.\n\n"
                "Every window's own menu (right-click its caption) ends with what Halyard can do for it.\n"
                "The settings explain each control by the \"?\" in their caption.",
                "Halyard", MB_ICONINFORMATION);
}

TrayRequest Run(HWND owner, const Library& library, UINT chosen, const std::vector<NamedDesktop>& desktops) noexcept {
    switch (chosen) {
    case EnabledItem: library.isEnabled() ? library.disable() : library.enable(); break;
    case PropertiesItem: library.doConfigDlg(0); break;
    case ProgramsItem: ShowPrograms(); break;
    case HelpItem: ShowHelp(owner); break;
    case AboutItem: MessageBoxA(owner, "Halyard " HALYARD_VERSION, "Halyard", MB_ICONINFORMATION); break;
    case RestoreItem: return TrayRequest::RestoreAll;
    case TaskbarsItem: return TrayRequest::ShowTaskbars;
    case ExitItem: return TrayRequest::Quit;
    default:
        if (chosen >= FirstDesktopItem && chosen - FirstDesktopItem < desktops.size())
            library.setActiveDesktop(desktops[chosen - FirstDesktopItem].id);
    }
    return TrayRequest::Nothing;
}

}  // namespace

void ShowWindowsMenu(HWND owner, const Library& library) noexcept {
    const Menu menu(CreatePopupMenu());
    const std::vector<NamedDesktop> desktops = DesktopsOf(library);
    Listing listing = {CurrentDesktop(library), {}};
    EnumWindows(List, reinterpret_cast<LPARAM>(&listing));
    for (std::size_t index = 0; index < desktops.size(); ++index) {
        AppendDesktop(menu.get(), desktops[index], index, listing.current);
        for (std::size_t number = 0; number < listing.windows.size(); ++number)
            if (listing.windows[number].desktop == desktops[index].id)
                AppendMenuText(menu.get(), MF_STRING, FirstWindowItem + number,
                               WithoutMenuMarks(("      " + listing.windows[number].title).c_str()).Text());
    }
    const UINT chosen = Track(owner, menu.get());
    if (chosen >= FirstWindowItem && chosen - FirstWindowItem < listing.windows.size())
        GoTo(library, listing.windows[chosen - FirstWindowItem]);
    else
        Run(owner, library, chosen, desktops);
}

TrayRequest ShowMainMenu(HWND owner, const Library& library) noexcept {
    const Menu menu(CreatePopupMenu());
    const std::vector<NamedDesktop> desktops = DesktopsOf(library);
    for (std::size_t index = 0; index < desktops.size(); ++index)
        AppendDesktop(menu.get(), desktops[index], index, CurrentDesktop(library));
    AppendMenuA(menu.get(), MF_SEPARATOR, 0, nullptr);
    AppendMenuA(menu.get(), MF_STRING | (library.isEnabled() ? MF_CHECKED : 0), EnabledItem, "&Enabled");
    AppendMenuA(menu.get(), MF_STRING, PropertiesItem, "&Properties...");
    if (const Taskbars bars = StateOfTaskbars(library); bars != Taskbars::None)
        AppendMenuA(menu.get(), MF_STRING | (bars == Taskbars::Shown ? MF_CHECKED | MF_GRAYED : 0), TaskbarsItem,
                    "Show &taskbars");
    AppendMenuA(menu.get(), MF_STRING, ProgramsItem, "Pro&grams...");
    AppendMenuA(menu.get(), MF_STRING, RestoreItem, "&Restore all windows");
    AppendMenuA(menu.get(), MF_SEPARATOR, 0, nullptr);
    AppendMenuA(menu.get(), MF_STRING, HelpItem, "&Help");
    AppendMenuA(menu.get(), MF_STRING, AboutItem, "&About Halyard");
    AppendMenuA(menu.get(), MF_STRING, ExitItem, "E&xit");
    return Run(owner, library, Track(owner, menu.get()), desktops);
}

}  // namespace halyard::loader
