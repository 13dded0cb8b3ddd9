#include "taskbars/secondary_taskbar.h"

namespace halyard {

TaskButton* FindButton(const SecondaryTaskbar& bar, HWND window) noexcept {
    for (TaskButton* button : bar.buttons)
        if (button->window == window) return button;
    return nullptr;
}

TaskButton* ButtonAtAddress(const SecondaryTaskbar& bar, ULONG_PTR address) noexcept {
    for (TaskButton* button : bar.buttons)
        if (reinterpret_cast<ULONG_PTR>(button) == address) return button;
    return nullptr;
}

}  // namespace halyard
