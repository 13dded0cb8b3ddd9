// A program that tells what was done to its windows, and opens dialogs. Works under any file name.
#include "programs/frame_protocol.h"
#include "programs/sample_options.h"

#include <cstdio>

namespace frame {

namespace {

sample::Options options;
int mainWindows = 0;
HWND hiddenOwner = nullptr;
int movesUntilDestroyed = 0;
char* report = nullptr;

LONG_PTR ownProcedure = 0;

// What windows of one kind have been through.
struct Counts {
    LRESULT messages[WM_USER];
    LRESULT hides;

    void Add(UINT message, LPARAM lParam) {
        if (message < WM_USER) ++messages[message];
        if (message == WM_WINDOWPOSCHANGED && (reinterpret_cast<const WINDOWPOS*>(lParam)->flags & SWP_HIDEWINDOW))
            ++hides;
    }
    LRESULT Of(WPARAM message) const { return message < WM_USER ? messages[message] : 0; }
};

Counts mainCounts = {};
Counts dialogCounts = {};

std::string StateText(const MENUITEMINFOA& item) {
    std::string text;
    if (item.fState & MFS_CHECKED) text += " checked";
    if (item.fState & MFS_GRAYED) text += " grey";
    if (item.fState & MFS_DEFAULT) text += " bold";
    return text;
}

// One line for each item, those of submenus below it and indented.
std::string MenuText(HMENU menu, const std::string& indent) {
    std::string lines;
    for (int position = 0; position < GetMenuItemCount(menu); ++position) {
        char text[64] = {};
        MENUITEMINFOA item = {};
        item.cbSize = sizeof(item);
        item.fMask = MIIM_TYPE | MIIM_STATE | MIIM_ID | MIIM_SUBMENU;
        item.dwTypeData = text;
        item.cch = sizeof(text);
        GetMenuItemInfoA(menu, static_cast<UINT>(position), TRUE, &item);
        const std::string name = item.fType & MFT_SEPARATOR ? "----" : "\"" + std::string(text) + "\"";
        lines += indent + std::to_string(item.wID) + " " + name + StateText(item) + "\n";
        if (item.hSubMenu) lines += MenuText(item.hSubMenu, indent + "  ");
    }
    return lines;
}

LRESULT Report(const std::string& text) {
    lstrcpynA(report, text.c_str(), ReportSize);
    return static_cast<LRESULT>(text.size());
}

bool FindItem(HMENU menu, UINT id, RECT& place) {
    for (int position = 0; position < GetMenuItemCount(menu); ++position) {
        MENUITEMINFOA item = {};
        item.cbSize = sizeof(item);
        item.fMask = MIIM_ID | MIIM_SUBMENU;
        GetMenuItemInfoA(menu, static_cast<UINT>(position), TRUE, &item);
        if (item.wID == id) return GetMenuItemRect(nullptr, menu, static_cast<UINT>(position), &place) != FALSE;
        if (item.hSubMenu && FindItem(item.hSubMenu, id, place)) return true;
    }
    return false;
}

LRESULT OnItemPlace(HWND window, UINT id) {
    RECT place = {};
    if (!FindItem(GetSystemMenu(window, FALSE), id, place)) return 0;
    return MAKELONG((place.left + place.right) / 2, (place.top + place.bottom) / 2);
}

HWND OwnerOf(HWND window, WPARAM kind) {
    return kind == VisibleOwner ? window : kind == HiddenOwner ? hiddenOwner : nullptr;
}

INT_PTR CALLBACK DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    dialogCounts.Add(message, lParam);
    LRESULT answer = 0;
    switch (message) {
    case sample::ShowAs: answer = ShowWindow(dialog, static_cast<int>(wParam)); break;
    case sample::CountMessage: answer = dialogCounts.Of(wParam); break;
    case Activate: answer = SetActiveWindow(dialog) != nullptr; break;
    case WM_CLOSE: return DestroyWindow(dialog);
    default: return FALSE;
    }
    SetWindowLongPtrA(dialog, DWLP_MSGRESULT, answer);
    return TRUE;
}

LRESULT OnOpenDialog(HWND owner, POINT place) {
    // Without controls, menu, class and title; the header is all that there is to the template.
    struct Template {
        DLGTEMPLATE header;
        WORD menu, windowClass, title;
    };
    alignas(DWORD) static const Template boxTemplate = {
        {WS_POPUP | WS_CAPTION | WS_SYSMENU, 0, 0, 0, 0, 100, 60}, 0, 0, 0};
    const HWND dialog =
        CreateDialogIndirectParamA(GetModuleHandleA(nullptr), &boxTemplate.header, owner, DialogProc, 0);
    SetWindowPos(dialog, nullptr, place.x, place.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    return reinterpret_cast<LRESULT>(dialog);
}

LRESULT OnMoving(HWND window) {
    if (movesUntilDestroyed > 0 && --movesUntilDestroyed == 0) DestroyWindow(window);
    return TRUE;
}

LRESULT OnMakeLayered(HWND window, BYTE alpha) {
    SetWindowLongA(window, GWL_EXSTYLE, GetWindowLongA(window, GWL_EXSTYLE) | WS_EX_LAYERED);
    return SetLayeredWindowAttributes(window, 0, alpha, LWA_ALPHA);
}

LRESULT OnDropLibrary() {
    const HMODULE library = GetModuleHandleA("tvlHalyd.dll");
    if (library) FreeLibrary(library);
    return library && !GetModuleHandleA("tvlHalyd.dll");
}

std::string RectText(const RECT& rect) {
    char text[64];
    std::snprintf(text, sizeof(text), "%ld,%ld,%ld,%ld", rect.left, rect.top, rect.right, rect.bottom);
    return text;
}

using WindowRectFn = BOOL (*)(HWND, RECT*);
using ParameterFn = BOOL (*)(UINT, UINT, void*);

BOOL OwnWindowRect(HWND window, RECT* rect) {
    return GetWindowRect(window, rect);
}

BOOL OwnParameter(UINT action, UINT param, void* data) {
    return SystemParametersInfoA(action, param, data, 0);
}

std::string SizesText(HWND window, WindowRectFn windowRect, ParameterFn parameter) {
    RECT desktop = {};
    RECT workArea = {};
    RECT own = {};
    UINT lines = 0;
    windowRect(GetDesktopWindow(), &desktop);
    windowRect(window, &own);
    parameter(SPI_GETWORKAREA, 0, &workArea);
    parameter(SPI_GETWHEELSCROLLLINES, 0, &lines);
    return "desktop " + RectText(desktop) + " work " + RectText(workArea) + " window " + RectText(own) + " lines " +
           std::to_string(lines) + "\n";
}

LRESULT OnReportSizes(HWND window) {
    const HMODULE layer = GetModuleHandleA("ExtensionLayer.dll");
    const auto entry = [&](const char* name) { return reinterpret_cast<void*>(GetProcAddress(layer, name)); };
    return Report("layer " +
                  SizesText(window, reinterpret_cast<WindowRectFn>(entry("LayerWindowRect")),
                            reinterpret_cast<ParameterFn>(entry("LayerParameter"))) +
                  "program " + SizesText(window, OwnWindowRect, OwnParameter));
}

LRESULT OnDestroy() {
    if (--mainWindows == 0) PostQuitMessage(0);
    return 0;
}

LRESULT CALLBACK MainProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    mainCounts.Add(message, lParam);
    switch (message) {
    case sample::ShowAs: return ShowWindow(window, static_cast<int>(wParam));
    case sample::CountMessage: return mainCounts.Of(wParam);
    case Activate: return SetActiveWindow(window) != nullptr;
    case CountHides: return mainCounts.hides;
    case ReportMenu: return Report(MenuText(GetSystemMenu(window, FALSE), {}));
    case ItemPlace: return OnItemPlace(window, static_cast<UINT>(wParam));
    case OpenDialog:
        return OnOpenDialog(OwnerOf(window, wParam),
                            {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
    case DestroyAtMove: return movesUntilDestroyed = static_cast<int>(wParam);
    case HasOwnProcedure: return GetWindowLongPtrA(window, GWLP_WNDPROC) == ownProcedure;
    case MakeLayered: return OnMakeLayered(window, static_cast<BYTE>(wParam));
    case DropLibrary: return OnDropLibrary();
    case LoadLayer: return LoadLibraryA("ExtensionLayer.dll") != nullptr;
    case ReportSizes: return OnReportSizes(window);
    case WM_MOVING: return OnMoving(window);
    case WM_DESTROY: return OnDestroy();
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

HWND Create(const char* windowClass, const std::string& title, const RECT& place) {
    return CreateWindowA(windowClass, title.c_str(), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, place.left, place.top,
                         place.right - place.left, place.bottom - place.top, nullptr, nullptr,
                         GetModuleHandleA(nullptr), nullptr);
}

void OpenMain(int number) {
    const std::string title = number == 1 ? options.title : options.title + " " + std::to_string(number);
    const HWND window = Create(options.windowClass.c_str(), title, options.place);
    ownProcedure = GetWindowLongPtrA(window, GWLP_WNDPROC);
    ShowWindow(window, SW_SHOW);
}

void RegisterOne(const char* name, WNDPROC procedure) {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    windowClass.lpszClassName = name;
    RegisterClassA(&windowClass);
}

int Run(int count, char** arguments) {
    if (!sample::ReadOptions(count, arguments, options)) return 2;
    const HANDLE block = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, ReportSize,
                                            ReportName(GetCurrentProcessId()).c_str());
    report = static_cast<char*>(MapViewOfFile(block, FILE_MAP_WRITE, 0, 0, ReportSize));
    if (!report) return 1;
    RegisterOne(options.windowClass.c_str(), MainProc);
    RegisterOne("FrameHiddenOwner", DefWindowProcA);
    hiddenOwner = Create("FrameHiddenOwner", "Hidden owner", options.place);
    mainWindows = options.count;
    for (int number = 1; number <= options.count; ++number)
        OpenMain(number);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}

}  // namespace

}  // namespace frame

int main(int count, char** arguments) {
    return frame::Run(count, arguments);
}
