#include "desktops/window_desktop_map.h"

#include "desktops/desktop_rules.h"
#include "desktops/session_record.h"
#include "process/server_call.h"
#include "process/shared_section.h"
#include "process/trace.h"

#include <cassert>
#include <memory>
#include <new>

namespace halyard {

WindowDesktopMap windowDesktopMap;

namespace {

// Showing a window the normal way would take it out of its minimised or maximised state, and a switch moves no window.
int ShowCommandFor(DWORD style) noexcept {
    if (style & WS_MINIMIZE) return SW_SHOWMINNOACTIVE;
    return style & WS_MAXIMIZE ? SW_SHOW : SW_SHOWNORMAL;
}

void Show(WindowDesktopRecord& record, int command) noexcept {
    record.hidden = false;
    ShowWindowAsync(record.window, command);
    for (HWND popup : record.popups)
        if (Owns(record.window, popup)) ShowWindowAsync(popup, SW_SHOWNA);
    record.popups.Clear();
}

}  // namespace

WindowDesktopMap::~WindowDesktopMap() {
    FreeAll();
}

void WindowDesktopMap::FreeAll() noexcept {
    for (auto& entry : records)
        delete entry.value;
    records.Clear();
}

void WindowDesktopMap::Record(HWND window, DesktopId id) noexcept {
    assert(OnServerThread());
    const DWORD key = HandleBits(window);
    if (WindowDesktopRecord** known = records.Find(key)) {
        (*known)->desktopId = id;
        return;
    }
    auto* record = new (std::nothrow) WindowDesktopRecord(window, id);
    if (record) GetWindowThreadProcessId(window, &record->process);
    if (!record || !records.Insert(key, record)) delete record;
}

void WindowDesktopMap::Assign(HWND window, DesktopId id) noexcept {
    WindowDesktopRecord** known = records.Find(HandleBits(window));
    Record(window, id);
    Trace("Assign", "window %x desktop %d", HandleBits(window), static_cast<int>(id));
    if (known) SweepOne(**known);
}

void WindowDesktopMap::Forget(HWND window) noexcept {
    assert(OnServerThread());
    const auto position = records.PositionOf(HandleBits(window));
    if (position == records.None) return;
    const std::unique_ptr<WindowDesktopRecord> record(records.At(position).value);
    records.RemoveAt(position);
    if (!record->hidden) return;
    Show(*record, SW_SHOW);
    hiddenChanged = true;
    KeepHidden();
}

void WindowDesktopMap::PurgeDead() noexcept {
    assert(OnServerThread());
    for (std::uint32_t position = records.Count(); position > 0; --position) {
        WindowDesktopRecord* record = records.At(position - 1).value;
        if (IsWindow(record->window)) continue;
        records.RemoveAt(position - 1);
        delete record;
    }
}

// A popup that is on the map has a desktop of its own and goes by that. A window of this thread hears of it at once,
// and what it does then may drop the record.
void WindowDesktopMap::Hide(WindowDesktopRecord& record, PopupSnapshot& visiblePopups) noexcept {
    HWND window = record.window;
    WindowRow owned;
    visiblePopups.CollectOwned(window, owned);
    record.hidden = true;
    for (HWND popup : owned)
        if (!Find(popup)) record.popups.Add(popup);
    ShowWindowAsync(window, SW_HIDE);
    for (HWND popup : owned)
        if (!Find(popup)) ShowWindowAsync(popup, SW_HIDE);
}

void WindowDesktopMap::Sweep(WindowDesktopRecord& record, PopupSnapshot& visiblePopups) noexcept {
    const auto style = static_cast<DWORD>(GetWindowLongA(record.window, GWL_STYLE));
    const SweepAction action =
        DecideSweep((style & WS_VISIBLE) != 0, record.desktopId, record.hidden, CurrentDesktopId());
    if (action == SweepAction::Nothing) return;
    hiddenChanged = true;
    if (action == SweepAction::Hide)
        Hide(record, visiblePopups);
    else
        Show(record, ShowCommandFor(style));
}

void WindowDesktopMap::SweepOne(WindowDesktopRecord& record) noexcept {
    PopupSnapshot visiblePopups;
    Sweep(record, visiblePopups);
    KeepHidden();
}

void WindowDesktopMap::SweepAll() noexcept {
    assert(OnServerThread());
    PopupSnapshot visiblePopups;
    for (std::uint32_t position = 0; position < records.Count(); ++position)
        Sweep(*records.At(position).value, visiblePopups);
    KeepHidden();
}

void WindowDesktopMap::MoveWindows(DesktopId from, DesktopId to) noexcept {
    for (auto& entry : records)
        if (entry.value->desktopId == from) entry.value->desktopId = to;
    SweepAll();
}

void WindowDesktopMap::MoveAllWindows(DesktopId to) noexcept {
    for (auto& entry : records)
        entry.value->desktopId = to;
    SweepAll();
}

void WindowDesktopMap::KeepHidden() noexcept {
    if (!hiddenChanged) return;
    hiddenChanged = false;
    unsigned count = 0;
    for (const auto& entry : records)
        if (entry.value->hidden) count += 1 + entry.value->popups.Count();
    const std::unique_ptr<HiddenWindow[]> hidden(new (std::nothrow) HiddenWindow[count + 1]);
    if (!hidden) return;
    HiddenWindow* next = hidden.get();
    for (const auto& entry : records) {
        const WindowDesktopRecord& record = *entry.value;
        if (!record.hidden) continue;
        *next++ = {entry.key, record.process};
        for (HWND popup : record.popups)
            *next++ = {HandleBits(popup), record.process};
    }
    KeepHiddenWindows(hidden.get(), count);
}

void WindowDesktopMap::ReleaseAll() noexcept {
    assert(OnServerThread());
    for (auto& entry : records) {
        if (!entry.value->hidden) continue;
        hiddenChanged = true;
        Show(*entry.value, SW_SHOW);
    }
    FreeAll();
    KeepHidden();
}

unsigned WindowDesktopMap::CountOn(DesktopId id) const noexcept {
    unsigned count = 0;
    for (const auto& entry : records)
        if (entry.value->desktopId == id && (entry.value->hidden || IsWindowVisible(entry.value->window))) ++count;
    return count;
}

const WindowDesktopRecord* WindowDesktopMap::Find(HWND window) noexcept {
    WindowDesktopRecord** found = records.Find(HandleBits(window));
    return found ? *found : nullptr;
}

}  // namespace halyard
