#include "hook/reload.h"

#include "desktops/desktop_list.h"
#include "process/profile.h"
#include "process/server_call.h"
#include "settings/settings.h"

namespace halyard {

void ReloadSettings() noexcept {
    settings.Load();
}

void ReloadDesktops() noexcept {
    if (profile.isServerProcess)
        RunOnServerThread([] { desktopList.Load(); });
    else
        desktopList.Load();
}

}  // namespace halyard
