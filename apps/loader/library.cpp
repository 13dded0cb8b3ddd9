#include "loader/library.h"

#include <cstring>

namespace halyard::loader {

namespace {

template <typename Function>
bool Bind(HMODULE module, const char* name, Function& function) noexcept {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
    return function != nullptr;
}

}  // namespace

bool BindLibrary(Library& library) noexcept {
    constexpr char File[] = "tvlHalyd.dll";
    char path[MAX_PATH + sizeof(File)] = {};
    if (!GetModuleFileNameA(nullptr, path, MAX_PATH)) return false;
    path[MAX_PATH - 1] = 0;
    char* slash = std::strrchr(path, '\\');
    std::memcpy(slash ? slash + 1 : path, File, sizeof(File));
    const HMODULE module = LoadLibraryA(path);
    return module && Bind(module, "ServerInit", library.serverInit) &&
           Bind(module, "ServerUninit", library.serverUninit) && Bind(module, "Enable", library.enable) &&
           Bind(module, "Disable", library.disable) && Bind(module, "IsEnabled", library.isEnabled) &&
           Bind(module, "DoConfigDlg", library.doConfigDlg) && Bind(module, "GetDesktop", library.getDesktop) &&
           Bind(module, "SetActiveDesktop", library.setActiveDesktop) &&
           Bind(module, "GetCurrentDesktopId", library.getCurrentDesktopId) &&
           Bind(module, "GetServerHwnd", library.getServerHwnd);
}

}  // namespace halyard::loader
