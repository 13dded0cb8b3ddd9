// The taskbars of the secondary displays and the task-switch mirror, together the extras. On the server's thread.
#pragma once

namespace halyard {

// False on a system that can't enumerate its displays: nothing is started there.
bool StartExtras() noexcept;
void StopExtras() noexcept;

// Brings what is there in line with the settings and the displays.
void RefreshExtras() noexcept;

}  // namespace halyard
