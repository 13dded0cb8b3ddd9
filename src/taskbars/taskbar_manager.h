// Keeps one secondary taskbar alive on every display that doesn't have the primary one. All on the server's thread,
// which alone knows of taskbars.
#pragma once

namespace halyard {

// Makes and destroys bars as the displays want it; nothing while the user wants none.
void SyncDisplays() noexcept;
// Brings the buttons of every bar in line with the windows that there are.
void FillTaskbars() noexcept;
// Makes up for what the shell's taskbar missed while it didn't answer. Called every now and then.
void CatchUpWithShell() noexcept;

}  // namespace halyard
