// The dialog procedures of the pages, each in the file of its own name.
#pragma once

#include "common/win_types.h"

namespace halyard {

INT_PTR CALLBACK WindowsPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK TaskbarsPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK DesktopsPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK HotkeysPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace halyard
