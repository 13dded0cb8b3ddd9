#include "taskbars/shell/shell_tabs.h"

#include "process/com.h"
#include "taskbars/shell/shell_silence.h"

// The shell's header declares the interface only behind this one.
#include <unknwn.h>

#include <shobjidl.h>

namespace halyard {

namespace {

constexpr GUID TaskbarListClass = {0x56FDF344, 0xFD6D, 0x11D0, {0x95, 0x8A, 0x00, 0x60, 0x97, 0xC9, 0xA0, 0x90}};
constexpr GUID TaskbarListInterface = {0x56FDF342, 0xFD6D, 0x11D0, {0x95, 0x8A, 0x00, 0x60, 0x97, 0xC9, 0xA0, 0x90}};

// A property of a window whose button has been taken, for whoever comes after a killed server.
constexpr char TakenTab[] = "TevralHalyardTab";

ITaskbarList* taskbarList = nullptr;
bool missed = false;

// The object waits for the shell's taskbar inside each call, without limit: one that doesn't answer gets none.
bool CanCall() noexcept {
    if (!taskbarList) return false;
    const bool answers = ShellAnswers();
    missed = missed || !answers;
    return answers;
}

BOOL CALLBACK GiveBackIfTaken(HWND window, LPARAM) noexcept {
    if (GetPropA(window, TakenTab) && (taskbarList || CreateTaskbarList())) AddTab(window);
    return TRUE;
}

}  // namespace

bool CreateTaskbarList() noexcept {
    if (taskbarList) taskbarList->Release();
    taskbarList =
        static_cast<ITaskbarList*>(CreateObject(TaskbarListClass, CLSCTX_INPROC_SERVER, TaskbarListInterface));
    if (taskbarList) taskbarList->HrInit();
    return taskbarList != nullptr;
}

void AddTab(HWND window) noexcept {
    // The mark stays on a window whose call was missed.
    if (!CanCall()) return;
    taskbarList->AddTab(window);
    RemovePropA(window, TakenTab);
}

void DeleteTab(HWND window) noexcept {
    // A window that refuses the mark keeps its button: nobody could give it back after a kill.
    if (CanCall() && SetPropA(window, TakenTab, taskbarList)) taskbarList->DeleteTab(window);
}

bool TakeMissedTabs() noexcept {
    if (!missed || !CanCall()) return false;
    missed = false;
    return true;
}

void GiveTabsBack() noexcept {
    EnumWindows(GiveBackIfTaken, 0);
}

}  // namespace halyard
