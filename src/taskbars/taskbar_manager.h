// Keeps one secondary taskbar alive on every display that doesn't have the primary one. All on the server's thread,
// which alone knows of taskbars.
#pragma once

#include "taskbars/secondary_taskbar.h"

namespace halyard {

// The bars in the order of their making.
unsigned TaskbarCount() noexcept;
SecondaryTaskbar& TaskbarAt(unsigned index) noexcept;
// Whether the bar is one of them. Any pointer may be asked for.
bool IsLive(const SecondaryTaskbar* bar) noexcept;

// Makes and destroys bars as the displays want it; nothing while the user wants none.
void SyncDisplays() noexcept;
// Brings the buttons of every bar in line with the windows that there are.
void FillTaskbars() noexcept;

// Both may be called from a bar's own window procedure: the object outlives its window until HM_TASKBAR_DELETE.
void DestroyTaskbar(SecondaryTaskbar& bar) noexcept;
void DestroyAllTaskbars() noexcept;
// Frees a bar whose window has gone; anything but one that was retired is ignored.
void DeleteRetiredTaskbar(LPARAM taskbar) noexcept;

// Asks the shell to tell the bar of windows that come, go, and are activated; the asking ends with the window.
void AttachShellHook(SecondaryTaskbar& bar, bool attach) noexcept;

// Notes where the shell's taskbar stands.
void ReadPrimaryTaskbarRect() noexcept;

}  // namespace halyard
