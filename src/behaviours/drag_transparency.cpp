#include "behaviours/drag_transparency.h"

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

// False for a window that the program draws with UpdateLayeredWindow: the platform knows no attributes of it, and
// once it was given some, the program's own drawing would fail. Nor can a system be asked that lacks the entry.
bool SaveLayer(HWND window, DragTransparency& state) noexcept {
    if (!getLayeredAttributes || !getLayeredAttributes(window, &state.key, &state.alpha, &state.flags)) return false;
    // A window with a colour key only is solid, whatever number the platform has for its opacity.
    if (!(state.flags & LWA_ALPHA)) state.alpha = 255;
    state.flags |= LWA_ALPHA;
    return true;
}

}  // namespace

void BeginTransparency(HWND window, DragTransparency& state) noexcept {
    if (state.on || !settings.DragTrans() || !BindLayered()) return;
    const LONG style = GetWindowLongA(window, GWL_EXSTYLE);
    state = {};
    state.layeredAdded = !(style & WS_EX_LAYERED);
    if (state.layeredAdded)
        SetWindowLongA(window, GWL_EXSTYLE, style | WS_EX_LAYERED);
    else if (!SaveLayer(window, state))
        return;
    state.on = true;
    setLayeredAttributes(window, state.key, DragAlpha(settings.DragTransPerCent()), state.flags | LWA_ALPHA);
}

void EndTransparency(HWND window, DragTransparency& state) noexcept {
    if (!state.on) return;
    state.on = false;
    if (state.layeredAdded)
        // Read afresh: the program may have changed other bits during the drag.
        SetWindowLongA(window, GWL_EXSTYLE, GetWindowLongA(window, GWL_EXSTYLE) & ~WS_EX_LAYERED);
    else
        setLayeredAttributes(window, state.key, state.alpha, state.flags);
}

}  // namespace halyard
