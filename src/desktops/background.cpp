#include "desktops/background.h"

#include "desktops/background_notifier.h"
#include "desktops/wallpaper.h"
#include "process/profile.h"

namespace halyard {

void CaptureBackground(Desktop& desktop) noexcept {
    if (!profile.isServerProcess) return;
    desktop.colour = BackgroundColour();
    ReadWallpaper(desktop);
}

void ApplyBackground(const Desktop& desktop) noexcept {
    if (!profile.isServerProcess) return;
    ChangeBackgroundColour(desktop.colour);
    if (GiveWallpaper(desktop)) NotifyBackgroundChange();
}

}  // namespace halyard
