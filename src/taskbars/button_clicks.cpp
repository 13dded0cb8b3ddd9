#include "taskbars/button_clicks.h"

#include "desktops/window_calls.h"
#include "taskbars/task_buttons.h"
#include "taskbars/task_list.h"

namespace halyard {

namespace {

constexpr UINT OpenSystemMenu = 0x313;  // asks a window to open its system menu; lParam: where, on the screen
constexpr UINT ProgramTimeout = 2000;   // ms that a click waits for a program that is hung

// A hung program gets the command when it comes round to it.
void SendCommand(HWND window, WPARAM command) noexcept {
    DWORD_PTR answer = 0;
    SendMessageTimeoutA(window, WM_SYSCOMMAND, command, 0, SMTO_ABORTIFHUNG, ProgramTimeout, &answer);
}

}  // namespace

void OnButtonClick(SecondaryTaskbar& bar, const TaskButton* button) noexcept {
    if (!button) {
        UncheckOtherButtons(bar, nullptr);
        return;
    }
    // The control has toggled the button already.
    const bool wasActive = !IsChecked(bar, *button);
    UncheckOtherButtons(bar, button);
    HWND window = button->window;
    if (!IsWindow(window)) {
        RemoveButton(bar, window, false);
    } else if (wasActive) {
        SendCommand(window, SC_MINIMIZE);
    } else {
        BringTaskToFront(window);
    }
}

void BringTaskToFront(HWND window) noexcept {
    if (GoToDesktopOf(window)) return;
    if (IsIconic(window)) SendCommand(window, SC_RESTORE);
    SetForegroundWindow(window);
}

void OnButtonMenu(const SecondaryTaskbar& bar, int entry, POINT point) noexcept {
    const TaskButton* button = ButtonOfEntry(bar, entry);
    if (!button) return;
    HWND window = button->window;
    SetForegroundWindow(window);
    SendNotifyMessageA(window, OpenSystemMenu, 0, MAKELPARAM(point.x, point.y));
}

}  // namespace halyard
