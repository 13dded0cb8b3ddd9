#include "desktops/desktop_switch.h"

#include "desktops/background.h"
#include "desktops/desktop_list.h"
#include "desktops/desktop_name.h"
#include "desktops/desktop_rules.h"
#include "desktops/kept_background.h"
#include "desktops/window_desktop_map.h"
#include "desktops/window_switch.h"
#include "process/server_call.h"
#include "process/shared_section.h"
#include "process/trace.h"
#include "settings/registry_key.h"
#include "settings/settings.h"
#include "settings/store.h"

#include <cassert>

namespace halyard {

namespace {

// A switch waits for answers of the platform and lets sent messages in meanwhile, so that the next request can arrive
// before this one is done. It is kept, and carried out after it; the latest one wins.
bool switching = false;
bool anotherRequested = false;
DesktopId requestedId = DefaultDesktopId;

// The desktop that was current when it was removed, until the windows are settled; the default one for none.
DesktopId removedCurrent = DefaultDesktopId;

void StoreOutgoing(Desktop& outgoing) noexcept {
    CaptureBackground(outgoing);
    desktopList.StoreBackground(outgoing);
    RegistryKey desktops;
    if (OpenDesktopsKey(desktops, KeyUse::Write)) DesktopList::SaveDesktop(outgoing, desktops);
}

// Works on copies: messages that are let in on the way may load the list anew, which frees its records.
void Switch(DesktopId id) noexcept {
    assert(OnServerThread());
    const DesktopId current = CurrentDesktopId();
    if (id == current) return;
    const bool exists = desktopList.Has(id);
    Trace("Switch", "desktop %d to %d", static_cast<int>(current), static_cast<int>(id));
    if (exists) {
        // The windows first: asking the shell for its wallpaper takes as long as all of them together.
        SetCurrentDesktopId(id);
        SwitchWindows(current);
        // Not for the way home when the system is turned off.
        if (settings.ShowsDesktopName() && HooksInstalled())
            ShowDesktopName(desktopList.NameAt(desktopList.IndexOf(id)).Text());
    }
    if (const Desktop* found = desktopList.Find(current)) {
        Desktop outgoing = *found;
        StoreOutgoing(outgoing);
        // Not for a desktop that doesn't exist: the background kept then would be given back at the next start, over
        // one that the user has chosen since.
        if (current == DefaultDesktopId && exists) KeepDefaultBackground(outgoing);
    }
    const Desktop* found = exists ? desktopList.Find(id) : nullptr;
    if (!found) return;
    const Desktop incoming = *found;
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
    assert(OnServerThread());
    if (id == DefaultDesktopId) return;
    windowDesktopMap.MoveWindows(id, DefaultDesktopId);
    desktopList.Remove(id);
    if (id == CurrentDesktopId())
        removedCurrent = id;
    else
        ForgetOrder(id);
}

void SettleWindows() noexcept {
    assert(OnServerThread());
    if (removedCurrent == DefaultDesktopId) {
        BringInLine();
        return;
    }
    ActivateHere(DefaultDesktopId);
    ForgetOrder(removedCurrent);
    removedCurrent = DefaultDesktopId;
}

void SetMultiDesk(bool on) noexcept {
    RunOnServerThread([on] {
        const bool before = settings.MultiDesk();
        settings.StoreMultiDesk(on);
        settings.SaveMultiDesk(nullptr);
        if (on || !before) return;
        ActivateHere(DefaultDesktopId);
        windowDesktopMap.MoveAllWindows(DefaultDesktopId);
        BringInLine();
    });
}

DesktopId KnownDesktop(DesktopId id) noexcept {
    return id == AllDesktopsId || desktopList.Has(id) ? id : DefaultDesktopId;
}

}  // namespace halyard
