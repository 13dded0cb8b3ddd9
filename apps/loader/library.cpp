#include "loader/library.h"

#include "common/wide_text_buffer.h"
#include "files/files.h"

namespace halyard::loader {

namespace {

template <typename Function>
bool Bind(HMODULE module, const char* name, Function& function) noexcept {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
    return function != nullptr;
}

}  // namespace

bool BindLibrary(Library& library) noexcept {
    const std::string path = OwnFolder() + "tvlHalyd.dll";
    const HMODULE module =
        TakesWideText() ? LoadLibraryW(WideTextBuffer(path.c_str()).Text()) : LoadLibraryA(path.c_str());
    return module && Bind(module, "ServerInit", library.serverInit) &&
           Bind(module, "ServerUninit", library.serverUninit) && Bind(module, "Enable", library.enable) &&
           Bind(module, "Disable", library.disable) && Bind(module, "IsEnabled", library.isEnabled) &&
           Bind(module, "DoConfigDlg", library.doConfigDlg) && Bind(module, "GetDesktop", library.getDesktop) &&
           Bind(module, "SetActiveDesktop", library.setActiveDesktop) &&
           Bind(module, "GetCurrentDesktopId", library.getCurrentDesktopId) &&
           Bind(module, "GetServerHwnd", library.getServerHwnd);
}

}  // namespace halyard::loader
