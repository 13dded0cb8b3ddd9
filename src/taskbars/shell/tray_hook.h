// The hook on the thread of the primary taskbar: it keeps that taskbar from adding windows which have a secondary one,
// and tells the order of its buttons.
#pragma once

#include "common/win_types.h"

namespace halyard {

// The next three on the server's thread.

// Sets the hook, or sets it anew, and makes the shell's objects anew. False without a shell, or without its objects.
bool InstallTrayHook() noexcept;
void RemoveTrayHook() noexcept;

// What the primary taskbar has: the index of a window in its list, or `NotInTray`; the window at an index, null behind
// the end. Each asks the shell, and gives 0 when it has no answer. Waits at most 5 s, in which sent messages are let
// in.
DWORD TrayIndexOf(HWND window) noexcept;
HWND TrayWindowAt(DWORD index) noexcept;

// As long as there is one, the list is read once for all questions, and a shell without an answer is waited for once.
class TrayScan {
public:
    TrayScan() noexcept;
    TrayScan(const TrayScan&) = delete;
    TrayScan& operator=(const TrayScan&) = delete;
    ~TrayScan();
};

// The hook procedure, in the shell's process.
LRESULT CALLBACK TrayHookProc(int code, WPARAM remove, LPARAM message);

}  // namespace halyard
