#include "desktops/window_desktop_map.h"

#include "desktops/hidden_mark.h"
#include "process/server_call.h"
#include "process/shared_section.h"
#include "process/trace.h"

#include <cassert>

namespace halyard {

WindowDesktopMap windowDesktopMap;

namespace {

template <typename Value>
void DropDead(SortedMap<Value>& windows) noexcept {
    for (std::uint32_t position = windows.Count(); position > 0; --position)
        if (!IsWindow(HandleFromBits<HWND>(windows.At(position - 1).key))) windows.RemoveAt(position - 1);
}

}  // namespace

bool WindowDesktopMap::Record(HWND window, DesktopId desktop) noexcept {
    assert(OnServerThread());
    Trace("Record", "window %x desktop %d", HandleBits(window), static_cast<int>(desktop));
    if (DesktopId* known = desktops.Find(HandleBits(window))) {
        if (*known == desktop) return false;
        *known = desktop;
        return true;
    }
    return desktops.Insert(HandleBits(window), desktop);
}

bool WindowDesktopMap::Drop(HWND window) noexcept {
    assert(OnServerThread());
    const auto position = desktops.PositionOf(HandleBits(window));
    desktops.RemoveAt(position);
    return position != desktops.None;
}

void WindowDesktopMap::DropAll() noexcept {
    desktops.Clear();
    asked.Clear();
}

void WindowDesktopMap::PurgeDead() noexcept {
    assert(OnServerThread());
    DropDead(desktops);
    DropDead(asked);
}

void WindowDesktopMap::MoveWindows(DesktopId from, DesktopId to) noexcept {
    for (auto& entry : desktops)
        if (entry.value == from) entry.value = to;
}

void WindowDesktopMap::MoveAllWindows(DesktopId to) noexcept {
    for (auto& entry : desktops)
        entry.value = to;
}

DesktopId WindowDesktopMap::DesktopOfWindow(HWND window) noexcept {
    const DesktopId* found = desktops.Find(HandleBits(window));
    return found ? *found : NoDesktop;
}

unsigned WindowDesktopMap::CountOn(DesktopId id) const noexcept {
    unsigned count = 0;
    for (const auto& entry : desktops) {
        HWND window = HandleFromBits<HWND>(entry.key);
        if (entry.value == id && (IsMarkedHidden(window) || IsWindowVisible(window))) ++count;
    }
    return count;
}

Request WindowDesktopMap::Asked(WindowKey window) noexcept {
    const Request* found = asked.Find(window);
    return found ? *found : Request::Nothing;
}

void WindowDesktopMap::NoteAsked(WindowKey window, Request request) noexcept {
    if (Request* found = asked.Find(window))
        *found = request;
    else
        asked.Insert(window, request);
}

void WindowDesktopMap::NoteSeen(WindowKey window, bool visible) noexcept {
    if (Asked(window) == (visible ? Request::Show : Request::Hide)) asked.RemoveAt(asked.PositionOf(window));
}

}  // namespace halyard
