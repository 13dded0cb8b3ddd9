#include "taskbars/extras.h"

namespace halyard {

void StartExtras() noexcept {}

void StopExtras() noexcept {}

void RefreshExtras() noexcept {}

void SyncDisplays() noexcept {}

bool OnWindowChanged(HWND, bool) noexcept {
    return false;
}

void AddTab(HWND) noexcept {}

void DeleteTab(HWND) noexcept {}

void DeleteRetiredTaskbar(LPARAM) noexcept {}

}  // namespace halyard
