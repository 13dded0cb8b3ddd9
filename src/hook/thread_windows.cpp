#include "hook/thread_windows.h"

#include "hook/behaviours.h"
#include "process/shared_section.h"

#include <new>
#include <utility>

namespace halyard {

ThreadWindows::~ThreadWindows() {
    for (auto& entry : windows)
        delete entry.value;
    FreeRetired();
}

TrackedWindow* ThreadWindows::ForWindow(HWND window) noexcept {
    const DWORD key = HandleBits(window);
    if (TrackedWindow** known = windows.Find(key)) return *known;
    auto* record = new (std::nothrow) TrackedWindow(window);
    if (!windows.Insert(key, record)) {
        delete record;
        return nullptr;
    }
    return record;
}

void ThreadWindows::Remove(HWND window) noexcept {
    const auto position = windows.PositionOf(HandleBits(window));
    if (position == windows.None) return;
    TrackedWindow* record = windows.At(position).value;
    windows.RemoveAt(position);
    if (pins > 0 && record)
        record->nextRetired = std::exchange(retired, record);
    else
        delete record;
}

void ThreadWindows::FreeRetired() noexcept {
    while (retired)
        delete std::exchange(retired, retired->nextRetired);
}

void ThreadWindows::DestroyAll() noexcept {
    // By position and from a count taken anew: taking an extension off sends messages to the program, and what it does
    // then may bring a hook call that grows the map.
    for (std::uint32_t position = 0; position < windows.Count(); ++position) {
        TrackedWindow* record = windows.At(position).value;
        if (!record) continue;
        // Also windows that aren't managed may have got one, when the settings changed.
        if (record->submenu) RemoveMenuExtension(*record);
        if (record->IsManaged()) record->NotifyServer(false);
    }
    for (auto& entry : windows)
        delete entry.value;
    windows.Clear();
}

}  // namespace halyard
