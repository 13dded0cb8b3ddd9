// What the hooks call when something is due for a window. The hooks know only that these can be called; each operation
// lives in the unit of its behaviour. All run on the window's own thread.
#pragma once

#include "common/win_types.h"

namespace halyard {

struct TrackedWindow;

// The extension of the system menu. Adding does nothing where it stands already, where the window has no system menu,
// or with the `ExtendSysMenu` setting off; removing does nothing where there is none.
void AddMenuExtension(TrackedWindow& tracked) noexcept;
void RemoveMenuExtension(TrackedWindow& tracked) noexcept;
// Brings the items of an opening menu up to date; `lParam` is that of WM_INITMENUPOPUP.
void UpdateMenuExtension(TrackedWindow& tracked, HMENU menu, LPARAM lParam) noexcept;

// Whether this command, given now, makes the window span all displays or ends that.
bool ChangesSpanning(const TrackedWindow& tracked, WPARAM command) noexcept;
// Carries a system command out if it is one of ours. True: the program mustn't see it.
bool HandleSysCommand(TrackedWindow& tracked, WPARAM command, LPARAM lParam) noexcept;

// Window memory.
void SaveWindowMemory(TrackedWindow& tracked) noexcept;
void RestoreWindowMemory(TrackedWindow& tracked) noexcept;

// Watches a move or size loop that has just begun.
void BeginDragLoop(TrackedWindow& tracked) noexcept;

// Puts a dialog where the user wants dialogs.
void PlaceDialog(TrackedWindow& tracked) noexcept;

// The displays or their work areas have changed.
void RefreshAfterDisplayChange(TrackedWindow& tracked) noexcept;

}  // namespace halyard
