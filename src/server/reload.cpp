#include "hook/reload.h"

#include "common/handles.h"
#include "desktops/desktop_list.h"
#include "process/profile.h"
#include "process/server_call.h"
#include "settings/settings.h"

namespace halyard {

namespace {

// Lets one thread read while the others wait for what it reads.
class Reading {
public:
    template <typename Read>
    void Do(LPARAM broadcast, Read read) noexcept {
        const Guard guard(lock.Section());
        if (broadcast != 0 && broadcast == last) return;
        read();
        last = broadcast;
    }

private:
    Lock lock;
    LPARAM last = 0;
};

Reading settingsReading;
Reading desktopsReading;

}  // namespace

void ReloadSettings(LPARAM broadcast) noexcept {
    settingsReading.Do(broadcast, [] { settings.Load(); });
}

void ReloadDesktops(LPARAM broadcast) noexcept {
    // Not within the lock: the server's thread may be waiting for it.
    if (profile.isServerProcess)
        RunOnServerThread([] { desktopList.Load(); });
    else
        desktopsReading.Do(broadcast, [] { desktopList.Load(); });
}

}  // namespace halyard
