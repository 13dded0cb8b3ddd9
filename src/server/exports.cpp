#include "server/exports.h"

#include "common/wide_text_buffer.h"
#include "config/config_dialog.h"
#include "desktops/desktop_list.h"
#include "desktops/desktop_switch.h"
#include "process/server_call.h"
#include "process/shared_section.h"
#include "server/lifecycle.h"
#include "server/server_messages.h"
#include "settings/settings.h"

#include <cstring>

using namespace halyard;

void ServerInit() {
    StartServer(ServerWndProc);
}

void ServerUninit() {
    StopServer();
}

void Enable() {
    RunOnServerThread([] { TurnOn(); });
}

void Disable() {
    RunOnServerThread([] { TurnOff(); });
}

int IsEnabled() {
    return settings.Run() ? 1 : 0;
}

int DoConfigDlg(int page) {
    OpenConfigDialog(page);
    return 1;
}

int GetDesktop(unsigned index, char* name, unsigned, unsigned* id) {
    if (index >= desktopList.Count()) return 0;
    const TextBuffer text = InAnsi(desktopList.NameAt(index).Text());
    *id = desktopList.IdAt(index);
    std::memcpy(name, text.Text(), std::strlen(text.Text()) + 1);
    return 1;
}

int SetActiveDesktop(unsigned id) {
    if (!HooksInstalled()) return 0;
    if (IsServerWindowOurs())
        Activate(id);
    else
        SendMessageA(ServerWindow(), HM_SWITCH_DESKTOP, 0, static_cast<LPARAM>(static_cast<int>(id)));
    return 1;
}

int GetCurrentDesktopId(unsigned* id) {
    *id = CurrentDesktopId();
    return 1;
}

int IsMultiDeskEnabled() {
    return settings.MultiDesk() ? 1 : 0;
}

HWND GetServerHwnd() {
    return ServerWindow();
}
