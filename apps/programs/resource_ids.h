// Ids of the window's dialog and controls.
#pragma once

#define IDD_PROGRAMS 301

#define IDC_PROGRAM_LIST 1001
#define IDC_WINDOW_LIST 1002
#define IDC_PROGRAM_PATH 1003
#define IDC_KEEP_OUT 1004
#define IDC_REFRESH 1005
