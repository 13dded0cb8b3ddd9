#include "desktops/desktop_switch.h"

#include "desktops/background.h"
#include "desktops/desktop_list.h"
#include "desktops/desktop_rules.h"
#include "desktops/session_record.h"
#include "desktops/window_desktop_map.h"
#include "process/server_call.h"
#include "process/shared_section.h"
#include "process/trace.h"
#include "settings/registry_key.h"
#include "settings/settings.h"
#include "settings/store.h"

#include <cassert>

namespace halyard {

namespace {

// What the platform is asked during a switch can bring the next request before this one is done; it waits its turn.
bool switching = false;
bool anotherRequested = false;
DesktopId requestedId = DefaultDesktopId;

// Works on copies: a list that is loaded anew meanwhile takes its records along.
void Switch(DesktopId id) noexcept {
    assert(OnServerThread());
    const DesktopId current = CurrentDesktopId();
    if (id == current) return;
    if (const Desktop* found = desktopList.Find(current)) {
        Desktop outgoing = *found;
        CaptureBackground(outgoing);
        desktopList.StoreBackground(outgoing);
        RegistryKey desktops;
        OpenDesktopsKey(desktops);
        DesktopList::SaveDesktop(outgoing, desktops);
        if (current == DefaultDesktopId) KeepDefaultBackground(outgoing);
    }
    const Desktop* found = desktopList.Find(id);
    if (!found) return;
    const Desktop incoming = *found;
    Trace("Switch", "desktop %d to %d", static_cast<int>(current), static_cast<int>(id));
    SetCurrentDesktopId(id);
    ApplyBackground(incoming);
    if (id == DefaultDesktopId) DropDefaultBackground();
}

void ActivateHere(DesktopId id) noexcept {
    requestedId = id;
    anotherRequested = true;
    if (switching) return;
    switching = true;
    while (anotherRequested) {
        anotherRequested = false;
        Switch(requestedId);
    }
    switching = false;
}

void ActivateNeighbour(int step) noexcept {
    RunOnServerThread([step] {
        const unsigned count = desktopList.Count();
        const unsigned position = desktopList.IndexOf(CurrentDesktopId());
        if (position < count) ActivateHere(desktopList.IdAt(Neighbour(position, count, step)));
    });
}

}  // namespace

void Activate(DesktopId id) noexcept {
    RunOnServerThread([id] { ActivateHere(id); });
}

void ActivateNext() noexcept {
    ActivateNeighbour(1);
}

void ActivatePrevious() noexcept {
    ActivateNeighbour(-1);
}

void RemoveDesktop(DesktopId id) noexcept {
    if (id == DefaultDesktopId) return;
    RunOnServerThread([id] {
        windowDesktopMap.MoveWindows(id, DefaultDesktopId);
        desktopList.Remove(id);
        if (id == CurrentDesktopId()) ActivateHere(DefaultDesktopId);
    });
}

void SetMultiDesk(bool on) noexcept {
    if (settings.MultiDesk() == on) return;
    settings.StoreMultiDesk(on);
    if (on) return;
    RunOnServerThread([] {
        ActivateHere(DefaultDesktopId);
        windowDesktopMap.MoveAllWindows(DefaultDesktopId);
    });
}

DesktopId KnownDesktop(DesktopId id) noexcept {
    return id == AllDesktopsId || desktopList.Has(id) ? id : DefaultDesktopId;
}

}  // namespace halyard
