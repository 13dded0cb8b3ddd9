// The two system-wide hooks: what every GUI thread runs for each of its messages.
#pragma once

#include "common/win_types.h"

namespace halyard {

// WH_GETMESSAGE: sees what a thread takes out of its queue, and may cancel it by turning it into WM_NULL.
LRESULT CALLBACK GetMessageHookProc(int code, WPARAM remove, LPARAM message);

// WH_CALLWNDPROCRET: sees each sent message after the window's procedure has answered it.
LRESULT CALLBACK CallWndProcRetHookProc(int code, WPARAM ownThread, LPARAM event);

// What the second one does of its own, without the call of the next hook. On the thread that owns the window.
void ObserveSentMessage(const CWPRETSTRUCT& event) noexcept;

// What the first one does of its own. True: the message has been cancelled.
bool FilterTakenMessage(MSG& message) noexcept;

}  // namespace halyard
