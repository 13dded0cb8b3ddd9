// The exports of the library, for a loader to bind by name or by ordinal. C linkage, the compiler's plain C calling
// convention. Results of 0 or 1 are 32 bits wide.
#pragma once

#include "common/win_types.h"

extern "C" {

// Starts the server in this process. On a thread that pumps messages, which then owns the server window.
void ServerInit();

// Ends the server; the settings stay, so that the next start enables the system again. On the thread of ServerInit.
void ServerUninit();

// Turn the system on or off, and keep that in the registry. Any thread of the server process.
void Enable();
void Disable();

// The `Run` setting as this process holds it; says nothing of whether the hooks are in at this moment.
int IsEnabled();

// Opens the property sheet on a page counted from 0, or raises it. Always 1.
int DoConfigDlg(int page);

// Id and name of the desktop at `index`. `name` must hold the whole name with its closing zero, at most 261 bytes; the
// third argument is not looked at. 0, with nothing written, when `index` is past the end.
int GetDesktop(unsigned index, char* name, unsigned unused, unsigned* id);

// Makes a desktop current. 0, with nothing done, while the hooks are out; else 1, also for an unknown id. Any thread of
// any process that has the library; waits for the switch.
int SetActiveDesktop(unsigned id);

// Always 1.
int GetCurrentDesktopId(unsigned* id);

int IsMultiDeskEnabled();

// The server window; null when there is none.
HWND GetServerHwnd();
}
