// The hook on the thread of the primary taskbar: it keeps that taskbar from adding windows which have a secondary one,
// and tells the order of its buttons.
#pragma once

#include "common/win_types.h"

#include <optional>

namespace halyard {

// The next three on the server's thread.

// Sets the hook, or sets it anew, and makes the shell's objects anew. False without a shell, or without its objects; a
// hook that can't be set is kept as a failure.
bool InstallTrayHook() noexcept;
void RemoveTrayHook() noexcept;

// What the primary taskbar has, as it was read for the present scan: the index of a window in its list, empty where it
// doesn't have the window or doesn't tell; the window at an index, null after the end and for an item without one. The
// first question of a scan asks the shell and waits at most 1 s for each answer, while sent messages are let in.
// Outside of a scan the shell isn't asked.
std::optional<DWORD> TrayIndexOf(HWND window) noexcept;
HWND TrayWindowAt(DWORD index) noexcept;

// A walk over all windows. A shell that has let a question go unanswered isn't asked again for 30 s.
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
