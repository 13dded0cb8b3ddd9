// The name of a desktop, shown on every display for a moment when the desktop comes.
#pragma once

namespace halyard {

// Replaces a name that is still to be seen. Never takes the keyboard. Nothing where displays can't be enumerated.
// Server's thread; returns at once.
void ShowDesktopName(const char* name) noexcept;

// Takes the name away at once.
void HideDesktopName() noexcept;

}  // namespace halyard
