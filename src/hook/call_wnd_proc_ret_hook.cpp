#include "hook/behaviours.h"
#include "hook/desktop_menu.h"
#include "hook/hook_procs.h"
#include "hook/interest_table.h"
#include "hook/thread_table.h"
#include "hook/window_events.h"
#include "process/profile.h"
#include "process/shared_section.h"
#include "process/window_long.h"

namespace halyard {

namespace {

bool ncPaintGuard = false;

// The program leaves WS_MAXIMIZE out of a window that spans all displays, and would paint the frame of a normal window:
// it paints once more with the bit set.
void RepaintSpanningFrame(HWND window, WPARAM region) noexcept {
    if (ncPaintGuard || (ReadWindowLong(window, GWL_STYLE) & WS_MAXIMIZE)) return;
    ncPaintGuard = true;
    {
        const BorrowedStyle maximised(window, WS_MAXIMIZE);
        CallPresentProc(window, WM_NCPAINT, region, 0);
    }
    ncPaintGuard = false;
}

// The hooks are about to go.
void OnEnd(HWND window) noexcept {
    TrackedWindow* tracked = TrackedWindowOf(window);
    if (!tracked) return;
    RemoveMenuExtension(*tracked);
    threadTable->ForCurrentThread()->Remove(window);
}

}  // namespace

void ObserveSentMessage(const CWPRETSTRUCT& event) noexcept {
    if (profile.desktopViewWindow) WatchDesktopMenu(event);
    if (!threadTable) return;
    if (!IsInteresting(event.message)) {
        if (event.message == profile.restartMessage && event.lParam == 0) OnEnd(event.hwnd);
        return;
    }
    // On 64-bit Windows a hook for programs of the other bitness runs on the thread that set it.
    if (profile.isServerProcess && GetWindowThreadProcessId(event.hwnd, nullptr) != GetCurrentThreadId()) return;
    // A sent message is handled on the thread that owns its window, which is thereby known without asking.
    ThreadWindows* windows = threadTable->ForCurrentThread();
    if (!windows) return;
    const ThreadWindows::Pin pin(*windows);
    TrackedWindow* tracked = windows->ForWindow(event.hwnd);
    if (!tracked) return;
    if (event.message == WM_NCPAINT && profile.program.acad && tracked->maximisedAcross)
        RepaintSpanningFrame(event.hwnd, event.wParam);
    else if (!DispatchWindowEvent(*tracked, event))
        windows->Remove(event.hwnd);
}

LRESULT CALLBACK CallWndProcRetHookProc(int code, WPARAM ownThread, LPARAM event) {
    const HHOOK hook = CallWndProcRetHook();
    // The slot is cleared before the hook goes, so that a late call does nothing.
    if (!hook) return 0;
    if (code >= 0 && profile.hookEngineActive) ObserveSentMessage(*reinterpret_cast<const CWPRETSTRUCT*>(event));
    return CallNextHookEx(hook, code, ownThread, event);
}

}  // namespace halyard
