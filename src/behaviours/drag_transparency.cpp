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

// False for a window that the program draws with UpdateLayeredWindow: the platform knows no attributes of it, and
// once it was given some, the program's own drawing would fail. Nor can a system be asked that lacks the entry.
bool SaveLayer(DragLoop& loop) noexcept {
    auto& layer = loop.savedLayer;
    if (!getLayeredAttributes || !getLayeredAttributes(loop.window, &layer.key, &layer.alpha, &layer.flags))
        return false;
    // A window with a colour key only is solid, whatever number the platform has for its opacity.
    if (!(layer.flags & LWA_ALPHA)) layer.alpha = 255;
    layer.flags |= LWA_ALPHA;
    return true;
}

}  // namespace

void BeginTransparency(DragLoop& loop) noexcept {
    if (loop.transparencyOn || !settings.DragTrans() || !BindLayered()) return;
    const LONG style = GetWindowLongA(loop.window, GWL_EXSTYLE);
    loop.layeredAdded = !(style & WS_EX_LAYERED);
    loop.savedLayer = {};
    if (loop.layeredAdded)
        SetWindowLongA(loop.window, GWL_EXSTYLE, style | WS_EX_LAYERED);
    else if (!SaveLayer(loop))
        return;
    loop.transparencyOn = true;
    setLayeredAttributes(loop.window, loop.savedLayer.key, DragAlpha(settings.DragTransPerCent()),
                         loop.savedLayer.flags | LWA_ALPHA);
}

void EndTransparency(DragLoop& loop) noexcept {
    if (!loop.transparencyOn) return;
    loop.transparencyOn = false;
    if (loop.layeredAdded)
        // Read afresh: the program may have changed other bits during the drag.
        SetWindowLongA(loop.window, GWL_EXSTYLE, GetWindowLongA(loop.window, GWL_EXSTYLE) & ~WS_EX_LAYERED);
    else
        setLayeredAttributes(loop.window, loop.savedLayer.key, loop.savedLayer.alpha, loop.savedLayer.flags);
}

}  // namespace halyard
