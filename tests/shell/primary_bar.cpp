// The shell's own task bar: the windows by which other programs find its control with the tabs, what it does with shell
// events, and whom it tells of them.
#include "shell/app_bars.h"
#include "shell/switcher.h"
#include "shell/task_windows.h"
#include "shell/tray_protocol.h"

#include <algorithm>
#include <map>

#include <commctrl.h>
#include <shellapi.h>

namespace standin {

namespace {

constexpr UINT LookPeriod = 50;  // ms
constexpr UINT_PTR LookTimer = 1;
constexpr int Thickness = 30, Border = 3;
constexpr int IconSize = 16, ButtonWidth = 160, ButtonHeight = 22;

// Whoever reads the newer kind of the control from outside finds this by the number of a button, and relies on the
// first word alone.
struct Tab {
    DWORD handle;
    HICON icon;
    HWND Window() const { return static_cast<HWND>(ULongToHandle(handle)); }
};

class PrimaryBar {
public:
    // At the bottom of the first display. The control is of the kind that the platform's shell has on newer systems or
    // on older ones, as other programs read it in place.
    explicit PrimaryBar(bool isOlder);
    PrimaryBar(const PrimaryBar&) = delete;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void Place(int display, UINT edge) const;
    void LookAtWindows();
    // To every window that has registered with this shell, and to the bar itself: its own list changes when its copy
    // comes out of the queue, unless somebody has taken it out before.
    void Say(WPARAM event, HWND task) const;
    void OnShellEvent(WPARAM event, HWND task);
    void Add(HWND task);
    void Remove(HWND task);
    void ShowTabs() const;

    const bool older;
    const UINT shellHook;
    const HWND window, rebar, tasks, control;
    const HIMAGELIST images;
    std::vector<Tab> tabs;
    HWND marked = nullptr;
    // As the last look found it: the windows with their titles, and the one in front.
    std::map<HWND, std::string> known;
    HWND active = nullptr;
};

HWND MakeWindow(const char* name, WNDPROC procedure, HWND parent) {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = procedure;
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_3DFACE + 1);
    windowClass.lpszClassName = name;
    RegisterClassA(&windowClass);
    // Topmost, it is found before Wine's own window of its class.
    return CreateWindowExA(parent ? 0 : WS_EX_TOPMOST | WS_EX_TOOLWINDOW, name, "",
                           (parent ? WS_CHILD | WS_VISIBLE : WS_POPUP) | WS_CLIPCHILDREN, 0, 0, 0, 0, parent, nullptr,
                           nullptr, nullptr);
}

BOOL CALLBACK CollectDisplay(HMONITOR, HDC, RECT* place, LPARAM places) {
    reinterpret_cast<std::vector<RECT>*>(places)->push_back(*place);
    return TRUE;
}

struct Event {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    HWND shell;
};

BOOL CALLBACK TellListener(HWND window, LPARAM lParam) {
    const auto& event = *reinterpret_cast<const Event*>(lParam);
    if (GetPropA(window, ListenerProperty) == event.shell)
        PostMessageA(window, event.message, event.wParam, event.lParam);
    return TRUE;
}

DWORD ControlStyle(bool older) {
    return older ? TCS_BUTTONS : CCS_NORESIZE | CCS_NODIVIDER | CCS_NOPARENTALIGN | TBSTYLE_LIST;
}

PrimaryBar::PrimaryBar(bool isOlder)
    : older(isOlder), shellHook(RegisterWindowMessageA("SHELLHOOK")), window(MakeWindow(TrayClass, Procedure, nullptr)),
      rebar(MakeWindow("ReBarWindow32", DefWindowProcA, window)),
      tasks(MakeWindow("MSTaskSwWClass", DefWindowProcA, rebar)),
      control(CreateWindowA(older ? WC_TABCONTROLA : TOOLBARCLASSNAMEA, "", WS_CHILD | WS_VISIBLE | ControlStyle(older),
                            0, 0, 0, 0, tasks, nullptr, nullptr, nullptr)),
      images(ImageList_Create(IconSize, IconSize, ILC_COLOR32 | ILC_MASK, 8, 8)) {
    if (!older) {
        SendMessageA(control, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
        SendMessageA(control, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images));
    }
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    Place(1, ABE_BOTTOM);
    ShowWindow(window, SW_SHOWNA);
    SetTimer(window, LookTimer, LookPeriod, nullptr);
    SendNotifyMessageA(HWND_BROADCAST, RegisterWindowMessageA("TaskbarCreated"), 0, 0);
}

LRESULT CALLBACK PrimaryBar::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* bar = reinterpret_cast<PrimaryBar*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    return bar ? bar->OnMessage(message, wParam, lParam) : DefWindowProcA(window, message, wParam, lParam);
}

LRESULT PrimaryBar::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == shellHook) OnShellEvent(wParam, reinterpret_cast<HWND>(lParam));
    switch (message) {
    case CountTabs: return static_cast<LRESULT>(tabs.size());
    case TabAt: return wParam < tabs.size() ? static_cast<LRESULT>(tabs[wParam].handle) : 0;
    case MarkedTab: return reinterpret_cast<LRESULT>(marked);
    case AddTab: Add(reinterpret_cast<HWND>(wParam)); break;
    case DeleteTab: Remove(reinterpret_cast<HWND>(wParam)); break;
    case MoveTray:
        Place(static_cast<int>(wParam), static_cast<UINT>(lParam));
        NotifyAppBars(ABN_POSCHANGED, 0);
        break;
    case SayFullScreen: NotifyAppBars(ABN_FULLSCREENAPP, wParam != 0); break;
    case HangTray: Sleep(static_cast<DWORD>(wParam)); break;
    case WM_TIMER: LookAtWindows(); break;
    case WM_DESTROY: PostQuitMessage(0); break;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

void PrimaryBar::Place(int display, UINT edge) const {
    std::vector<RECT> displays;
    EnumDisplayMonitors(nullptr, nullptr, CollectDisplay, reinterpret_cast<LPARAM>(&displays));
    const RECT& area = displays[display - 1];
    const int width = area.right - area.left;
    SetWindowPos(window, HWND_TOPMOST, area.left, edge == ABE_TOP ? area.top : area.bottom - Thickness, width,
                 Thickness, SWP_NOACTIVATE);
    MoveWindow(rebar, Border, Border, width - 2 * Border, Thickness - 2 * Border, TRUE);
    for (const HWND inner : {tasks, control})
        MoveWindow(inner, 0, 0, width - 2 * Border, Thickness - 2 * Border, TRUE);
}

// The runtime tells nobody what becomes of windows. At the first look every one is new.
void PrimaryBar::LookAtWindows() {
    std::vector<HWND> present = TaskWindows();
    std::reverse(present.begin(), present.end());  // a later window starts in front of an earlier one
    std::erase_if(known, [&](const auto& seen) {
        const bool gone = std::find(present.begin(), present.end(), seen.first) == present.end();
        if (gone) Say(HSHELL_WINDOWDESTROYED, seen.first);
        return gone;
    });
    for (const HWND task : present) {
        const std::string title = TitleOf(task);
        const auto [seen, isNew] = known.try_emplace(task, title);
        if (isNew) Say(HSHELL_WINDOWCREATED, task);
        // A new one may have changed its title between two looks.
        if (isNew || seen->second != title) Say(HSHELL_REDRAW, task);
        seen->second = title;
    }
    // With the flag that a shell may add to any event.
    const HWND front = TaskOf(GetForegroundWindow());
    if (front != active) Say(HSHELL_RUDEAPPACTIVATED, front);
    active = front;
    // Of a window that was added though it is none of these.
    for (std::size_t index = tabs.size(); index > 0; --index)
        if (const HWND task = tabs[index - 1].Window(); !IsWindow(task)) Remove(task);
}

void PrimaryBar::Say(WPARAM event, HWND task) const {
    const Event told = {shellHook, event, reinterpret_cast<LPARAM>(task), window};
    PostMessageA(window, told.message, told.wParam, told.lParam);
    EnumWindows(TellListener, reinterpret_cast<LPARAM>(&told));
}

void PrimaryBar::OnShellEvent(WPARAM event, HWND task) {
    switch (event) {
    case HSHELL_WINDOWCREATED: Add(task); break;
    case HSHELL_WINDOWDESTROYED: Remove(task); break;
    case HSHELL_RUDEAPPACTIVATED:
        Add(task);
        marked = task;
        break;
    case HSHELL_REDRAW: ShowTabs(); break;
    }
}

void PrimaryBar::Add(HWND task) {
    const HICON icon = IsWindow(task) ? IconOf(task) : nullptr;
    const auto isTask = [=](const Tab& tab) { return tab.Window() == task; };
    if (!icon || std::any_of(tabs.begin(), tabs.end(), isTask)) return;
    tabs.push_back({static_cast<DWORD>(HandleToULong(task)), icon});
    ShowTabs();
}

void PrimaryBar::Remove(HWND task) {
    std::erase_if(tabs, [=](const Tab& tab) { return tab.Window() == task; });
    ShowTabs();
}

void PrimaryBar::ShowTabs() const {
    while (SendMessageA(control, older ? TCM_DELETEITEM : TB_DELETEBUTTON, 0, 0)) {
    }
    ImageList_RemoveAll(images);
    for (const Tab& tab : tabs) {
        std::string title = TitleOf(tab.Window());
        if (older) {
            TCITEMA item = {};
            item.mask = TCIF_PARAM | TCIF_TEXT;
            item.pszText = title.data();
            item.lParam = static_cast<LPARAM>(tab.handle);
            SendMessageA(control, TCM_INSERTITEMA, tabs.size(), reinterpret_cast<LPARAM>(&item));
            continue;
        }
        TBBUTTON button = {};
        button.iBitmap = ImageList_ReplaceIcon(images, -1, tab.icon);
        button.fsState = TBSTATE_ENABLED;
        button.dwData = reinterpret_cast<DWORD_PTR>(&tab);
        button.iString = reinterpret_cast<INT_PTR>(title.c_str());
        SendMessageA(control, TB_ADDBUTTONSA, 1, reinterpret_cast<LPARAM>(&button));
    }
    if (!older) SendMessageA(control, TB_SETBUTTONSIZE, 0, MAKELPARAM(ButtonWidth, ButtonHeight));
}

}  // namespace

}  // namespace standin

// standin_tray [--tabs]: the shell as a program, with its task bar and the task switch.
int main(int count, char**) {
    // Wine's shell, whose part is taken over, starts with its desktop.
    GetDesktopWindow();
    InitCommonControls();
    standin::StartSwitcher();
    standin::StartAppBars();
    const standin::PrimaryBar bar(count > 1);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
    return 0;
}
