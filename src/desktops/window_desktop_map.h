// The server's map of windows to desktops.
#pragma once

#include "common/sorted_map.h"
#include "common/win_types.h"
#include "desktops/switch_rules.h"

namespace halyard {

enum class Request { Nothing, Hide, Show };

// In the server process, on the server's thread only. What it says is brought about by the window switch.
class WindowDesktopMap {
public:
    // `desktop` may be `AllDesktopsId`. False when the window was on that desktop already.
    bool Record(HWND window, DesktopId desktop) noexcept;
    // False for a window that isn't on the map.
    bool Drop(HWND window) noexcept;
    void DropAll() noexcept;
    // Drops the windows that no longer exist.
    void PurgeDead() noexcept;

    void MoveWindows(DesktopId from, DesktopId to) noexcept;
    void MoveAllWindows(DesktopId to) noexcept;

    // `NoDesktop` for a window that isn't on the map.
    DesktopId DesktopOfWindow(HWND window) noexcept;
    unsigned Count() const noexcept { return desktops.Count(); }
    // Windows of a desktop that the user sees when it is current.
    unsigned CountOn(DesktopId id) const noexcept;

    // What the window was asked last and hasn't done yet, since its program is busy.
    Request Asked(WindowKey window) noexcept;
    void NoteAsked(WindowKey window, Request request) noexcept;
    // The window is seen visible or hidden now, which may be what it was asked for.
    void NoteSeen(WindowKey window, bool visible) noexcept;

private:
    SortedMap<DesktopId> desktops;
    SortedMap<Request> asked;
};

extern WindowDesktopMap windowDesktopMap;

}  // namespace halyard
