#include "desktops/recovery.h"

#include "desktops/kept_background.h"
#include "desktops/wallpaper.h"
#include "process/protocol.h"

namespace halyard {

void RecoverBackground() noexcept {
    Desktop standard(DefaultDesktopId, nullptr, 0);
    if (!ReadDefaultBackground(standard)) return;
    const INT element = COLOR_BACKGROUND;
    if (GetSysColor(element) != standard.colour) SetSysColors(1, &element, &standard.colour);
    GiveWallpaper(standard);
    DropDefaultBackground();
    DWORD_PTR answer = 0;
    SendMessageTimeoutA(HWND_BROADCAST, WM_SETTINGCHANGE, 0, 0, SMTO_BLOCK | SMTO_ABORTIFHUNG, BroadcastTimeout,
                        &answer);
}

}  // namespace halyard
