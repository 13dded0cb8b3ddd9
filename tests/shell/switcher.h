// The platform's task switch: Alt+Tab shows the windows, releasing Alt brings the chosen one to the front.
#pragma once

namespace standin {

// On the calling thread, until the program ends.
void StartSwitcher();

}  // namespace standin
