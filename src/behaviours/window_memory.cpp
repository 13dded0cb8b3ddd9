// Windows that reopen where they were. hook/behaviours.h declares what the hooks call of it, and nobody else calls it.
#include "behaviours/geometry.h"
#include "behaviours/maximise_across.h"
#include "behaviours/memory_record.h"
#include "behaviours/placement.h"
#include "behaviours/window_position.h"
#include "desktops/desktop_list.h"
#include "displays/displays.h"
#include "hook/behaviours.h"
#include "hook/classification.h"
#include "hook/tracked_window.h"
#include "process/shared_section.h"
#include "process/window_long.h"
#include "settings/registry_key.h"
#include "settings/settings.h"
#include "settings/store.h"

namespace halyard {

namespace {

constexpr char DesktopValue[] = "Desktop";
constexpr int CascadeLimit = 20;

// The two flag bytes aside, a record is a placement.
WINDOWPLACEMENT ToPlacement(const WindowMemory& memory) noexcept {
    return {sizeof(WINDOWPLACEMENT), memory.flags,       memory.showCommand,
            memory.minPosition,      memory.maxPosition, memory.normalRect};
}

WindowMemory MemoryOf(const TrackedWindow& tracked) noexcept {
    const WINDOWPLACEMENT placement = PlacementOf(tracked.window);
    WindowMemory memory;
    memory.maximisedAcross = tracked.maximisedAcross;
    memory.topmost = IsTopmost(tracked.window);
    memory.flags = placement.flags;
    memory.showCommand = placement.showCmd;
    memory.minPosition = placement.ptMinPosition;
    memory.maxPosition = placement.ptMaxPosition;
    const RECT& normal = tracked.maximisedAcross ? tracked.savedNormalRect : placement.rcNormalPosition;
    memory.normalRect = ToWorkspace(tracked.window, normal);
    return memory;
}

// Windows of one class share a record: each next one is put a step right of and below the one before.
void Cascade(HWND window, RECT& rect) noexcept {
    const int step = CascadeStep();
    for (int shift = 0; shift < CascadeLimit && SameRectWindowExists(window, rect); ++shift)
        rect = Shifted(rect, step, step);
}

// The server learns of the window's desktop ahead of the switch, so that the switch finds the window on it. A desktop
// that has been removed since counts as the current one.
void ReturnToDesktop(TrackedWindow& tracked, DesktopId remembered) noexcept {
    const bool everywhere = remembered == AllDesktopsId;
    const DesktopId id = everywhere || desktopList.Has(remembered) ? remembered : CurrentDesktopId();
    tracked.desktopId = id;
    const auto lParam = static_cast<LPARAM>(static_cast<int>(id));
    PostMessageA(ServerWindow(), HM_WINDOW_RETURNS, reinterpret_cast<WPARAM>(tracked.window), lParam);
    if (!everywhere) PostMessageA(ServerWindow(), HM_SWITCH_DESKTOP, 0, lParam);
}

// A program that gives its window no sizing frame decides on the size itself.
void KeepFixedSize(HWND window, RECT& rect) noexcept {
    if (ReadWindowLong(window, GWL_STYLE) & WS_THICKFRAME) return;
    const RECT present = PlacementOf(window).rcNormalPosition;
    rect = {rect.left, rect.top, rect.left + WidthOf(present), rect.top + HeightOf(present)};
}

void ReturnToPlace(TrackedWindow& tracked, const WindowMemory& memory) noexcept {
    WINDOWPLACEMENT placement = ToPlacement(memory);
    RECT& normal = placement.rcNormalPosition;
    normal = FromWorkspace(tracked.window, normal);
    KeepFixedSize(tracked.window, normal);
    normal = WithinReach(normal);
    if (memory.maximisedAcross) {
        MaximiseAcross(tracked, &normal);
    } else {
        if (memory.showCommand == SW_SHOWNORMAL) {
            Cascade(tracked.window, normal);
            // Showing and activating the window is left to the program.
            placement.showCmd = IsWindowVisible(tracked.window) ? SW_SHOWNOACTIVATE : SW_HIDE;
        }
        SetPlacement(tracked.window, placement);
    }
    SetTopmost(tracked.window, memory.topmost);
}

}  // namespace

void SaveWindowMemory(TrackedWindow& tracked) noexcept {
    if (!QualifiesForWindowMemory(tracked.window)) return;
    BYTE bytes[MemoryRecordSize];
    EncodeWindowMemory(MemoryOf(tracked), bytes);
    RegistryKey key;
    if (!OpenAppKey(key, true)) return;
    key.WriteBytes(NormalisedClassName(tracked.window).Text(), bytes, sizeof(bytes));
    // While there is one desktop only, the one that is remembered waits for the time when there are several again.
    if (settings.MultiDesk()) key.WriteDword(DesktopValue, tracked.desktopId);
}

void RestoreWindowMemory(TrackedWindow& tracked) noexcept {
    RegistryKey key;
    if (!QualifiesForWindowMemory(tracked.window) || !OpenAppKey(key, false)) return;
    if (settings.MultiDesk()) ReturnToDesktop(tracked, key.ReadDwordOr(DesktopValue, CurrentDesktopId()));
    // A byte more than a record has, so that a longer one shows.
    BYTE bytes[MemoryRecordSize + 1];
    DWORD size = sizeof(bytes);
    WindowMemory memory;
    if (key.ReadBytes(NormalisedClassName(tracked.window).Text(), bytes, size) == ERROR_SUCCESS &&
        DecodeWindowMemory(bytes, size, memory))
        ReturnToPlace(tracked, memory);
}

}  // namespace halyard
