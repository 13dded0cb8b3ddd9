// The hook on the thread of the primary taskbar: it keeps that taskbar from adding windows which have a secondary one,
// and tells the order of its buttons.
#pragma once

#include "common/win_types.h"

namespace halyard {

// The next three on the server's thread.

// Sets the hook, or sets it anew, and makes the shell's objects anew. False without a shell, or without its objects.
bool InstallTrayHook() noexcept;
void RemoveTrayHook() noexcept;

// Asks `message`, one of TrayMessage. The answer; 0 when it couldn't be had. Waits at most 5 s, in which sent messages
// are let in; after one such wait the rest of the same scan isn't asked at all.
DWORD AskTray(UINT message, WPARAM wParam) noexcept;

// As long as there is one, the shell is waited for once at most.
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
