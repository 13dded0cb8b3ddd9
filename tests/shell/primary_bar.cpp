#include "shell/primary_bar.h"

#include "shell/task_windows.h"
#include "shell/tray_protocol.h"

#include <algorithm>

#include <shellapi.h>

namespace standin {

namespace {

constexpr char RebarClass[] = "ReBarWindow32";
constexpr char TasksClass[] = "MSTaskSwWClass";
constexpr char ListenerClass[] = "TevralHalyardTaskbar";  // its registration with the runtime's shell is a stub
constexpr UINT LookPeriod = 50;                           // ms
constexpr UINT_PTR LookTimer = 1;

constexpr int Thickness = 30;
constexpr int VerticalThickness = 120;
constexpr int Border = 3;
constexpr int ButtonHeight = 22;
constexpr int MaxButtonWidth = 160;
constexpr WPARAM EventFlags = 0x8000;

void RegisterOne(const char* name, WNDPROC procedure) {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_3DFACE + 1);
    windowClass.lpszClassName = name;
    RegisterClassA(&windowClass);
}

HWND MakeInner(const char* name, HWND parent) {
    RegisterOne(name, DefWindowProcA);
    return CreateWindowA(name, "", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 0, 0, parent, nullptr,
                         GetModuleHandleA(nullptr), nullptr);
}

HWND MakeOuter(WNDPROC procedure) {
    RegisterOne(TrayClass, procedure);
    // In front of the runtime's own window of that class, so that it is found first.
    return CreateWindowExA(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, TrayClass, "", WS_POPUP | WS_CLIPCHILDREN, 0, 0, 0, 0,
                           nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
}

struct Search {
    int left;
    RECT found;
};

BOOL CALLBACK CountDown(HMONITOR, HDC, RECT* place, LPARAM search) {
    auto& sought = *reinterpret_cast<Search*>(search);
    sought.found = *place;
    return --sought.left > 0;
}

// Of the last display where there are fewer.
RECT DisplayPlace(int display) {
    Search search = {display, {}};
    EnumDisplayMonitors(nullptr, nullptr, CountDown, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND AsWindow(WPARAM wParam) {
    return reinterpret_cast<HWND>(wParam);
}

LRESULT AsAnswer(HWND window) {
    return reinterpret_cast<LRESULT>(window);
}

}  // namespace

PrimaryBar::PrimaryBar(int display, UINT edge, bool tabs)
    : shellHook(RegisterWindowMessageA("SHELLHOOK")), window(MakeOuter(Procedure)),
      rebar(MakeInner(RebarClass, window)), tasks(MakeInner(TasksClass, rebar)),
      control(tabs ? MakeTabs(tasks) : MakeToolbar(tasks)), bars(window) {
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    Place(display, edge);
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
    case CountTabs: return control->Count();
    case TabAt: return AsAnswer(control->At(static_cast<int>(wParam)));
    case MarkedTab: return AsAnswer(control->Marked());
    case AddTab: Add(AsWindow(wParam)); break;
    case DeleteTab: Remove(AsWindow(wParam)); break;
    case MarkTab: Mark(AsWindow(wParam)); break;
    case MoveTray:
        Place(static_cast<int>(wParam), static_cast<UINT>(lParam));
        bars.Notify(ABN_POSCHANGED, 0);
        break;
    case SayEvent: Say({wParam, reinterpret_cast<HWND>(lParam)}); break;
    case SayFullScreen: bars.Notify(ABN_FULLSCREENAPP, wParam != 0); break;
    case HangTray: Sleep(static_cast<DWORD>(wParam)); break;
    case WM_TIMER: OnTimer(); break;
    case WM_PAINT: OnPaint(); break;
    case WM_MOUSEACTIVATE: return MA_NOACTIVATE;
    case WM_DESTROY: PostQuitMessage(0); break;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

void PrimaryBar::Place(int display, UINT edge) {
    RECT place = DisplayPlace(display);
    vertical = edge == ABE_LEFT || edge == ABE_RIGHT;
    if (edge == ABE_LEFT) place.right = place.left + VerticalThickness;
    if (edge == ABE_RIGHT) place.left = place.right - VerticalThickness;
    if (edge == ABE_TOP) place.bottom = place.top + Thickness;
    if (edge == ABE_BOTTOM) place.top = place.bottom - Thickness;
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    SetWindowPos(window, HWND_TOPMOST, place.left, place.top, width, height, SWP_NOACTIVATE);
    MoveWindow(rebar, Border, Border, width - 2 * Border, height - 2 * Border, TRUE);
    MoveWindow(tasks, 0, 0, width - 2 * Border, height - 2 * Border, TRUE);
    MoveWindow(control->Window(), 0, 0, width - 2 * Border, height - 2 * Border, TRUE);
    InvalidateRect(window, nullptr, TRUE);
    bars.SetEdge(edge);
    SizeButtons();
}

void PrimaryBar::SizeButtons() {
    RECT area;
    GetClientRect(control->Window(), &area);
    const int share = static_cast<int>(area.right) / (vertical ? 1 : std::max(control->Count(), 1));
    control->SetButtonSize(std::min(share - 4, MaxButtonWidth), ButtonHeight);
}

void PrimaryBar::OnPaint() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window, &paint);
    RECT area;
    GetClientRect(window, &area);
    DrawEdge(dc, &area, EDGE_RAISED, BF_RECT);
    EndPaint(window, &paint);
}

void PrimaryBar::OnTimer() {
    // A tab that was added for a window of another kind goes with its window.
    for (int index = control->Count() - 1; index >= 0; --index)
        if (const HWND task = control->At(index); !IsWindow(task) && !watch.Knows(task))
            Say({HSHELL_WINDOWDESTROYED, task});
    for (const ShellEvent& event : watch.Look())
        Say(event);
}

void PrimaryBar::Say(const ShellEvent& event) const {
    const auto lParam = reinterpret_cast<LPARAM>(event.window);
    PostMessageA(window, shellHook, event.code, lParam);
    HWND listener = nullptr;
    while ((listener = FindWindowExA(nullptr, listener, ListenerClass, nullptr)) != nullptr)
        PostMessageA(listener, shellHook, event.code, lParam);
}

void PrimaryBar::OnShellEvent(WPARAM code, HWND task) {
    switch (code & ~EventFlags) {
    case HSHELL_WINDOWCREATED: Add(task); break;
    case HSHELL_WINDOWDESTROYED: Remove(task); break;
    case HSHELL_WINDOWACTIVATED:
        Add(task);
        Mark(task);
        break;
    case HSHELL_REDRAW:
        if (const int index = control->Find(task); index >= 0) control->ReadTitle(index);
        break;
    }
}

void PrimaryBar::Add(HWND task) {
    if (!IsWindow(task) || control->Find(task) >= 0) return;
    control->Insert(task);
    SizeButtons();
}

void PrimaryBar::Remove(HWND task) {
    if (const int index = control->Find(task); index >= 0) control->Remove(index);
    SizeButtons();
}

}  // namespace standin
