#include "behaviours/drag_transparency.h"

#include "behaviours/drag_loop.h"
#include "behaviours/geometry.h"
#include "process/profile.h"
#include "settings/settings.h"

namespace halyard {

namespace {

using SetLayeredFn = BOOL(WINAPI*)(HWND, COLORREF, BYTE, DWORD);
using GetLayeredFn = BOOL(WINAPI*)(HWND, COLORREF*, BYTE*, DWORD*);

SetLayeredFn setLayeredAttributes = nullptr;
GetLayeredFn getLayeredAttributes = nullptr;

bool BindLayered() noexcept {
    if (setLayeredAttributes) return true;
    const HMODULE user = GetModuleHandleA("user32.dll");
    getLayeredAttributes = EntryOf<GetLayeredFn>(user, "GetLayeredWindowAttributes");
    setLayeredAttributes = EntryOf<SetLayeredFn>(user, "SetLayeredWindowAttributes");
    return setLayeredAttributes != nullptr;
}

}  // namespace

void BeginTransparency(DragLoop& loop) noexcept {
    if (loop.transparencyOn || !settings.DragTrans() || !BindLayered()) return;
    loop.transparencyOn = true;
    const LONG style = GetWindowLongA(loop.window, GWL_EXSTYLE);
    loop.layeredAdded = !(style & WS_EX_LAYERED);
    loop.savedAlpha = 255;
    BYTE alpha = 0;
    DWORD flags = 0;
    if (loop.layeredAdded)
        SetWindowLongA(loop.window, GWL_EXSTYLE, style | WS_EX_LAYERED);
    else if (getLayeredAttributes && getLayeredAttributes(loop.window, nullptr, &alpha, &flags) && (flags & LWA_ALPHA))
        // A window that has a colour key only reports no opacity, though it is solid.
        loop.savedAlpha = alpha;
    setLayeredAttributes(loop.window, 0, DragAlpha(settings.DragTransPerCent()), LWA_ALPHA);
}

void EndTransparency(DragLoop& loop) noexcept {
    if (!loop.transparencyOn) return;
    loop.transparencyOn = false;
    if (loop.layeredAdded)
        // Read afresh: the program may have changed other bits during the drag.
        SetWindowLongA(loop.window, GWL_EXSTYLE, GetWindowLongA(loop.window, GWL_EXSTYLE) & ~WS_EX_LAYERED);
    else
        setLayeredAttributes(loop.window, 0, loop.savedAlpha, LWA_ALPHA);
}

}  // namespace halyard
