#include "taskbars/task_list.h"

#include "common/window_text.h"
#include "process/protocol.h"
#include "process/shared_section.h"
#include "settings/settings.h"
#include "taskbars/attention.h"
#include "taskbars/button_ids.h"
#include "taskbars/live_taskbars.h"
#include "taskbars/overflow.h"
#include "taskbars/shell/shell_tabs.h"
#include "taskbars/shell/tray_hook.h"
#include "taskbars/task_buttons.h"
#include "taskbars/task_windows.h"

#include <new>

namespace halyard {

namespace {

ButtonIds buttonIds;

unsigned IndexOf(const SecondaryTaskbar& bar, HWND window) noexcept {
    unsigned index = 0;
    while (index < bar.buttons.Count() && bar.buttons.At(index)->window != window)
        ++index;
    return index;
}

// How many of the windows ahead of this one on the primary taskbar this bar shows, too: it stands after them here. -1,
// the end of the bar, where the primary taskbar doesn't have the window or doesn't tell.
int PlaceAmongAll(const SecondaryTaskbar& bar, HWND window) noexcept {
    const std::optional<DWORD> index = TrayIndexOf(window);
    if (!index) return -1;
    int place = 0;
    for (DWORD ahead = 0; ahead < *index; ++ahead)
        if (FindButton(bar, TrayWindowAt(ahead))) ++place;
    return place;
}

void PostTab(ServerMessage message, HWND window) noexcept {
    PostMessageA(ServerWindow(), message, reinterpret_cast<WPARAM>(window), 0);
}

void Check(SecondaryTaskbar& bar, TaskButton& button) noexcept {
    UncheckOtherButtons(bar, &button);
    StopFlashing(bar, button);
    CheckButton(bar, button);
}

// A window that is dragged to another display was active before, and isn't activated anew.
void CheckIfActive(SecondaryTaskbar& bar, TaskButton& button) noexcept {
    if (GetForegroundWindow() == button.window) Check(bar, button);
}

// `apply` of OnWindowChanged, while each bar shows the windows of its display.
void MoveToItsBar(SecondaryTaskbar& bar, HWND window, bool isHome) noexcept {
    if (!isHome) {
        RemoveButton(bar, window, false);
        return;
    }
    if (TaskButton* button = FindButton(bar, window))
        button->onThisDisplay = true;
    else if (TaskButton* added = AddButton(bar, window, true))
        CheckIfActive(bar, *added);
    PostTab(HM_TAB_DELETE, window);
}

}  // namespace

TaskButton* AddButton(SecondaryTaskbar& bar, HWND window, bool onThisDisplay) noexcept {
    // The questions let messages in: first they, then the change.
    const int place = settings.TaskbarsShowAllTasks() ? PlaceAmongAll(bar, window) : -1;
    if (!IsLive(&bar)) return nullptr;
    if (TaskButton* added = FindButton(bar, window)) return added;
    auto* button = new (std::nothrow) TaskButton;
    if (!button) return nullptr;
    button->window = window;
    button->onThisDisplay = onThisDisplay;
    button->commandId = buttonIds.Take();
    button->text = WideWindowTextOf(window);
    bar.buttons.Add(button);
    InsertToolbarButton(bar, *button, place);
    GiveButtonIcon(window);
    LayOutButtons(bar);
    if (WishesAttention(window)) FlashButton(bar, window);
    return button;
}

void RemoveButton(SecondaryTaskbar& bar, HWND window, bool giveBack) noexcept {
    const unsigned index = IndexOf(bar, window);
    if (index == bar.buttons.Count()) return;
    TaskButton* button = bar.buttons.At(index);
    bar.buttons.RemoveAt(index);
    DeleteToolbarButton(bar, *button);
    buttonIds.GiveBack(button->commandId);
    delete button;
    LayOutButtons(bar);
    if (giveBack) AddTab(window);
}

void ScanWindow(HWND window, SecondaryTaskbar& bar) noexcept {
    if (!IsTaskWindow(window)) return;
    const bool isHome = IsOnDisplay(bar, window);
    const bool showAll = settings.TaskbarsShowAllTasks();
    if (showAll) {
        PostTab(HM_TAB_ADD, window);
    } else if (!isHome) {
        RemoveButton(bar, window, true);
        return;
    }
    if (!FindButton(bar, window)) AddButton(bar, window, isHome);
    if (!showAll) PostTab(HM_TAB_DELETE, window);
}

void OnWindowActivated(SecondaryTaskbar& bar, HWND window) noexcept {
    if (!window) return;
    const bool isHome = IsOnDisplay(bar, window);
    const bool showAll = settings.TaskbarsShowAllTasks();
    TaskButton* button = FindButton(bar, window);
    if (button && !IsTaskWindow(window)) {
        RemoveButton(bar, window, false);
        return;
    }
    if (!showAll && !isHome) {
        RemoveButton(bar, window, true);
        UncheckOtherButtons(bar, nullptr);
        return;
    }
    if (!button) button = AddButton(bar, window, isHome);
    if (!button) return;
    Check(bar, *button);
}

void OnWindowRedraw(SecondaryTaskbar& bar, HWND window) noexcept {
    TaskButton* button = FindButton(bar, window);
    if (!button) return;
    WideTextBuffer title = WideWindowTextOf(window);
    if (title.IsEmpty()) return;
    button->text = std::move(title);
    ShowButtonText(bar, *button);
}

void OnWindowDestroyed(SecondaryTaskbar& bar, HWND window) noexcept {
    // The shell says the same of a window that is hidden.
    if (!settings.TaskbarsShowAllTasks() || !WishesAttention(window)) RemoveButton(bar, window, false);
}

bool OnWindowChanged(HWND window, bool apply) noexcept {
    // Without a bar, the primary taskbar is the business of the shell and its programs alone.
    if (TaskbarCount() == 0 || !IsTaskWindow(window)) return false;
    const bool showAll = settings.TaskbarsShowAllTasks();
    bool found = false;
    for (unsigned index = 0; index < TaskbarCount(); ++index) {
        SecondaryTaskbar& bar = TaskbarAt(index);
        const bool isHome = IsOnDisplay(bar, window);
        if (showAll) {
            // The others pick the window up when it is active next.
            if (TaskButton* button = FindButton(bar, window))
                button->onThisDisplay = isHome;
            else
                AddButton(bar, window, true);
            return false;
        }
        found = found || isHome;
        if (apply) MoveToItsBar(bar, window, isHome);
    }
    if (apply && !found) PostTab(HM_TAB_ADD, window);
    return found;
}

void OnWindowWishes(HWND window) noexcept {
    if (!settings.TaskbarsShowAllTasks() || !WishesAttention(window)) return;
    for (unsigned index = 0; index < TaskbarCount(); ++index) {
        SecondaryTaskbar& bar = TaskbarAt(index);
        if (AddButton(bar, window, IsOnDisplay(bar, window))) FlashButton(bar, window);
    }
}

void DropDeadButtons() noexcept {
    for (unsigned number = 0; number < TaskbarCount(); ++number) {
        SecondaryTaskbar& bar = TaskbarAt(number);
        for (unsigned left = bar.buttons.Count(); left > 0; --left)
            if (HWND window = bar.buttons.At(left - 1)->window; !IsWindow(window)) RemoveButton(bar, window, false);
    }
}

}  // namespace halyard
