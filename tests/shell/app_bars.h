// The shell's side of the bars that other programs dock. Wine's own shell keeps answering for their places; the
// stand-in steps in between, keeps what it is told last, as "ABM edge ABE at L,T,R,B", and has notices for the bars.
#pragma once

#include <windows.h>

namespace standin {

// On the calling thread, until the program ends.
void StartAppBars();
// Posts an ABN_ notice to every bar that is docked.
void NotifyAppBars(UINT notice, LPARAM detail);

}  // namespace standin
