// The library's exports as this program bound them.
#pragma once

#include <windows.h>

namespace halyard::loader {

struct Library {
    void (*serverInit)();
    void (*serverUninit)();
    void (*enable)();
    void (*disable)();
    int (*isEnabled)();
    int (*doConfigDlg)(int page);
    int (*getDesktop)(unsigned index, char* name, unsigned unused, unsigned* id);
    int (*setActiveDesktop)(unsigned id);
    int (*getCurrentDesktopId)(unsigned* id);
    HWND (*getServerHwnd)();
};

// Maps the library that lies beside this program and binds it, for the process's life. False when it isn't there or
// lacks an export.
bool BindLibrary(Library& library) noexcept;

}  // namespace halyard::loader
