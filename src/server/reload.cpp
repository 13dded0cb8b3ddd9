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

// In the server process both belong to the server's thread, which alone takes the lock there.
template <typename Read>
void ReadAgain(Reading& reading, LPARAM broadcast, Read read) noexcept {
    if (profile.isServerProcess)
        RunOnServerThread([&] { reading.Do(broadcast, read); });
    else
        reading.Do(broadcast, read);
}

}  // namespace

void ReloadSettings(LPARAM broadcast) noexcept {
    ReadAgain(settingsReading, broadcast, [] { settings.Load(); });
}

void ReloadDesktops(LPARAM broadcast) noexcept {
    ReadAgain(desktopsReading, broadcast, [] { desktopList.Load(); });
}

}  // namespace halyard
