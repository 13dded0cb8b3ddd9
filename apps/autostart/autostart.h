// Whether Halyard starts with the user's session: a value of the platform's Run key, the one that the installer writes.
#pragma once

namespace halyard {

bool IsAutostartOn() noexcept;

// For this user, with the program that this one was installed with: the launcher where there is one, else the loader
// beside this program. False when it couldn't be stored.
bool SetAutostart(bool on) noexcept;

}  // namespace halyard
