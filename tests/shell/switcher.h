// The platform's task switch: Alt+Tab shows the windows, releasing Alt brings the chosen one to the front.
#pragma once

namespace standin {

// Runs on a thread of its own until the program ends, as the platform's doesn't depend on the shell. Returns when it
// hears keys.
void StartSwitcher();

}  // namespace standin
