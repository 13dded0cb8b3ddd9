#include "taskbars/attention.h"

#include "process/protocol.h"
#include "taskbars/task_buttons.h"

namespace halyard {

namespace {

constexpr UINT FlashPeriod = 500;  // ms
constexpr unsigned Steps = 7;      // an odd number: the last one leaves the mark

}  // namespace

void FlashButton(SecondaryTaskbar& bar, HWND window) noexcept {
    TaskButton* button = FindButton(bar, window);
    if (!button || IsChecked(bar, *button)) return;
    button->flashes = Steps;
    SetTimer(bar.window, FlashTimer, FlashPeriod, nullptr);
}

void StepFlashing(SecondaryTaskbar& bar) noexcept {
    bool goesOn = false;
    for (TaskButton* button : bar.buttons) {
        if (button->flashes == 0) continue;
        MarkButton(bar, *button, button->flashes-- % 2 != 0);
        goesOn = goesOn || button->flashes > 0;
    }
    if (!goesOn) KillTimer(bar.window, FlashTimer);
}

void StopFlashing(SecondaryTaskbar& bar, TaskButton& button) noexcept {
    button.flashes = 0;
    MarkButton(bar, button, false);
}

bool WishesAttention(HWND window) noexcept {
    return GetPropA(window, WishMark) != nullptr;
}

}  // namespace halyard
