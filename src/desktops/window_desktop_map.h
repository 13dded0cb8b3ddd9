// The server's map of windows to desktops.
#pragma once

#include "common/sorted_map.h"
#include "desktops/window_visibility.h"
#include "process/protocol.h"

namespace halyard {

struct WindowDesktopRecord {
    WindowDesktopRecord(HWND mapped, DesktopId id) noexcept : window(mapped), desktopId(id) {}

    HWND window;
    DesktopId desktopId;  // or `AllDesktopsId`
    bool hidden = false;  // this system hid the window; never set for one that its program hid
    DWORD process = 0;    // of the window, for the record of hidden windows
    WindowRow popups;     // owned popups that went with the window, and come back with it
};

// In the server process, on the server's thread only. Owns its records. Nothing here waits for another program.
class WindowDesktopMap {
public:
    WindowDesktopMap() noexcept = default;
    WindowDesktopMap(const WindowDesktopMap&) = delete;
    WindowDesktopMap& operator=(const WindowDesktopMap&) = delete;
    ~WindowDesktopMap();

    // Gives a known window the desktop and hides or shows it accordingly; a window new to the map is only recorded.
    void Assign(HWND window, DesktopId id) noexcept;
    // Only records the desktop, of a known window too: the next sweep goes by it.
    void Record(HWND window, DesktopId id) noexcept;
    // Shows the window if it is hidden, and drops its record. An unknown window is ignored.
    void Forget(HWND window) noexcept;
    // Drops the records of windows that no longer exist.
    void PurgeDead() noexcept;

    // Brings one window, or all in order of handle, in line with the current desktop.
    void SweepOne(WindowDesktopRecord& record) noexcept;
    void SweepAll() noexcept;

    // Gives all windows of desktop `from`, or all windows whatever, the desktop `to`, and sweeps.
    void MoveWindows(DesktopId from, DesktopId to) noexcept;
    void MoveAllWindows(DesktopId to) noexcept;

    // Shows every hidden window and empties the map.
    void ReleaseAll() noexcept;

    unsigned Count() const noexcept { return records.Count(); }
    // Windows of a desktop that the user sees when it is current.
    unsigned CountOn(DesktopId id) const noexcept;
    const WindowDesktopRecord* Find(HWND window) noexcept;

private:
    void Sweep(WindowDesktopRecord& record, PopupSnapshot& visiblePopups) noexcept;
    void Hide(WindowDesktopRecord& record, PopupSnapshot& visiblePopups) noexcept;
    void KeepHidden() noexcept;
    void FreeAll() noexcept;

    SortedMap<WindowDesktopRecord*> records;
    bool hiddenChanged = false;  // since the hidden windows were last put on record
};

extern WindowDesktopMap windowDesktopMap;

}  // namespace halyard
