#include "loader/taskbars.h"

#include "process/protocol.h"
#include "settings/registry_key.h"
#include "settings/store.h"

namespace halyard::loader {

namespace {

constexpr char HintValue[] = "TaskbarsHintGiven";

}  // namespace

bool AreTaskbarsShown() noexcept {
    return FindWindowA(TaskbarWindowClass, nullptr) != nullptr;
}

Taskbars StateOfTaskbars(const Library& library) noexcept {
    if (AreTaskbarsShown()) return Taskbars::Shown;
    RegistryKey key;
    const bool wanted = library.isEnabled() && GetSystemMetrics(SM_CMONITORS) > 1 &&
                        key.Open(ChosenHive(), ProductKey, KEY_READ) && key.ReadBool("TaskbarsEnable", false);
    return wanted ? Taskbars::Closed : Taskbars::None;
}

bool TakeTaskbarsHint() noexcept {
    RegistryKey key;
    if (!key.Create(HKEY_CURRENT_USER, ProductKey) || key.ReadBool(HintValue, false)) return false;
    key.WriteDword(HintValue, 1);
    return true;
}

}  // namespace halyard::loader
