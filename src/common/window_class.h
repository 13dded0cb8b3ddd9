// A window class of this system's own.
#pragma once

#include "common/win_types.h"

namespace halyard {

// Registered at the first window, and taken away at the owner's word. A static object; the thread of its windows alone
// uses it. `name` must live as long.
class WindowClass {
public:
    constexpr WindowClass(const char* className, WNDPROC windowProc, UINT classStyle = 0) noexcept
        : name(className), procedure(windowProc), style(classStyle) {}

    // As the platform's own call; null on failure. `object` comes with WM_NCCREATE; messages before that find no
    // object.
    HWND Create(HINSTANCE instance, DWORD exStyle, DWORD windowStyle, const RECT& place, HWND parent = nullptr,
                void* object = nullptr) noexcept {
        Register(instance);
        return CreateWindowExA(exStyle, MAKEINTATOM(atom), nullptr, windowStyle, place.left, place.top,
                               place.right - place.left, place.bottom - place.top, parent, nullptr, instance, object);
    }

    // Nothing while a window of the class lives.
    void Unregister() noexcept {
        if (atom && UnregisterClassA(name, owner)) atom = 0;
    }

private:
    void Register(HINSTANCE instance) noexcept {
        if (atom) return;
        WNDCLASSEXA form = {};
        form.cbSize = sizeof(form);
        form.style = style;
        form.lpfnWndProc = procedure;
        form.hInstance = owner = instance;
        form.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
        form.lpszClassName = name;
        atom = RegisterClassExA(&form);
    }

    const char* name;
    WNDPROC procedure;
    UINT style;
    HINSTANCE owner = nullptr;
    ATOM atom = 0;
};

}  // namespace halyard
