// What a hooked process reads again when the configuration has changed. Any thread with windows.
#pragma once

namespace halyard {

void ReloadSettings() noexcept;

// In the server process the list belongs to the server's thread, and the reading is handed over to it.
void ReloadDesktops() noexcept;

}  // namespace halyard
