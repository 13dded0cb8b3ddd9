#include "taskbars/taskbar_manager.h"

#include "process/profile.h"
#include "process/protocol.h"
#include "process/shared_section.h"
#include "settings/settings.h"
#include "taskbars/app_bar.h"
#include "taskbars/shell/tray_hook.h"
#include "taskbars/task_list.h"
#include "taskbars/taskbar_window.h"

#include <cstring>
#include <new>

namespace halyard {

namespace {

struct TaskbarManager {
    Row<SecondaryTaskbar*> taskbars;
    Row<SecondaryTaskbar*> retired;  // without a window, until their message comes
    RECT primaryTaskbarRect = {};
};

TaskbarManager manager;

unsigned IndexIn(const Row<SecondaryTaskbar*>& bars, const SecondaryTaskbar* bar) noexcept {
    unsigned index = 0;
    while (index < bars.Count() && bars.At(index) != bar)
        ++index;
    return index;
}

SecondaryTaskbar* TaskbarOf(HMONITOR display) noexcept {
    for (SecondaryTaskbar* bar : manager.taskbars)
        if (bar->display == display) return bar;
    return nullptr;
}

void MakeTaskbar(DWORD index, HMONITOR display, const MONITORINFOEXA& info) noexcept {
    auto* bar = new (std::nothrow) SecondaryTaskbar;
    if (!bar) return;
    // In the list first: what comes while its window is made looks for it there.
    manager.taskbars.Add(bar);
    InitTaskbar(*bar, index, display, info.rcMonitor);
}

BOOL CALLBACK SyncDisplay(HMONITOR display, HDC, RECT*, LPARAM counter) noexcept {
    MONITORINFOEXA info = {};
    info.cbSize = sizeof(info);
    profile.getMonitorInfo(display, &info);
    // A pseudo display.
    if (std::strstr(info.szDevice, "DISPLAYV")) return TRUE;
    const DWORD index = ++*reinterpret_cast<DWORD*>(counter);
    SecondaryTaskbar* bar = TaskbarOf(display);
    const bool isPrimary = profile.monitorFromRect &&
                           profile.monitorFromRect(&manager.primaryTaskbarRect, MONITOR_DEFAULTTONEAREST) == display;
    if (isPrimary && bar) DestroyTaskbar(*bar);
    if (!isPrimary && !bar) MakeTaskbar(index, display, info);
    return TRUE;
}

BOOL CALLBACK ScanForBar(HWND window, LPARAM target) noexcept {
    auto* bar = reinterpret_cast<SecondaryTaskbar*>(target);
    if (!IsLive(bar)) return FALSE;
    ScanWindow(window, *bar);
    return TRUE;
}

using RegisterShellHookFn = BOOL(WINAPI*)(HWND, DWORD);

// Of the shell's library, which has it under a number only; kept mapped once it was found.
RegisterShellHookFn RegisterShellHookEntry() noexcept {
    constexpr WORD Ordinal = 181;
    static RegisterShellHookFn entry = nullptr;
    if (!entry)
        entry = EntryOf<RegisterShellHookFn>(LoadLibraryA("shell32.dll"), reinterpret_cast<const char*>(Ordinal));
    return entry;
}

}  // namespace

unsigned TaskbarCount() noexcept {
    return manager.taskbars.Count();
}

SecondaryTaskbar& TaskbarAt(unsigned index) noexcept {
    return *manager.taskbars.At(index);
}

bool IsLive(const SecondaryTaskbar* bar) noexcept {
    return IndexIn(manager.taskbars, bar) < manager.taskbars.Count();
}

void SyncDisplays() noexcept {
    if (!settings.TaskbarsEnable() || !profile.enumDisplayMonitors || !profile.getMonitorInfo) return;
    DWORD counter = 0;
    profile.enumDisplayMonitors(nullptr, nullptr, SyncDisplay, reinterpret_cast<LPARAM>(&counter));
}

void FillTaskbars() noexcept {
    const TrayScan scan;
    for (unsigned index = 0; index < manager.taskbars.Count(); ++index)
        EnumWindows(ScanForBar, reinterpret_cast<LPARAM>(manager.taskbars.At(index)));
}

void DestroyTaskbar(SecondaryTaskbar& bar) noexcept {
    const unsigned index = IndexIn(manager.taskbars, &bar);
    if (index == manager.taskbars.Count()) return;
    manager.taskbars.RemoveAt(index);
    manager.retired.Add(&bar);
    ShutdownTaskbar(bar);
    PostMessageA(ServerWindow(), HM_TASKBAR_DELETE, 0, reinterpret_cast<LPARAM>(&bar));
}

void DestroyAllTaskbars() noexcept {
    while (manager.taskbars.Count() > 0)
        DestroyTaskbar(*manager.taskbars.At(0));
    manager.taskbars.Clear();
}

void DeleteRetiredTaskbar(LPARAM taskbar) noexcept {
    auto* bar = reinterpret_cast<SecondaryTaskbar*>(taskbar);
    const unsigned index = IndexIn(manager.retired, bar);
    if (index == manager.retired.Count()) return;
    manager.retired.RemoveAt(index);
    delete bar;
}

void AttachShellHook(SecondaryTaskbar& bar, bool attach) noexcept {
    constexpr DWORD AddWindow = 1;       // on the Windows 9x family
    constexpr DWORD AddTaskManager = 3;  // elsewhere
    const RegisterShellHookFn registerShellHook = attach ? RegisterShellHookEntry() : nullptr;
    bar.shellHookAttached = registerShellHook != nullptr;
    if (!registerShellHook) return;
    registerShellHook(nullptr, 1);
    registerShellHook(bar.window, profile.isNtFamily ? AddTaskManager : AddWindow);
}

void ReadPrimaryTaskbarRect() noexcept {
    APPBARDATA data = {};
    CallAppBar(ABM_GETTASKBARPOS, data);
    manager.primaryTaskbarRect = data.rc;
    // Not every shell's answer follows its taskbar.
    RECT seen = {};
    RECT common = {};
    HWND tray = FindWindowA("Shell_TrayWnd", nullptr);
    if (tray && IsWindowVisible(tray) && GetWindowRect(tray, &seen) && !IntersectRect(&common, &seen, &data.rc))
        manager.primaryTaskbarRect = seen;
}

}  // namespace halyard
