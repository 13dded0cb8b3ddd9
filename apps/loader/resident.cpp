#include "loader/resident.h"

#include "common/window_class.h"

#include "loader/channel.h"
#include "loader/desktops.h"
#include "loader/guard.h"
#include "loader/output.h"
#include "loader/status.h"
#include "loader/tray_icon.h"
#include "process/protocol.h"

#include <algorithm>
#include <utility>

namespace halyard::loader {

namespace {

// For the window procedure and the console's handler, which get no context.
const Library* boundLibrary = nullptr;
HWND residentWindow = nullptr;
HANDLE endedEvent = nullptr;
bool serverRunning = false;
Guard guard;
TrayIcon trayIcon;
UINT taskbarCreated = 0;

constexpr DWORD EndTimeout = 5000;  // ms that the console's close waits for the server's end

void EndServer() noexcept {
    if (!serverRunning) return;
    serverRunning = false;
    trayIcon.Remove();
    boundLibrary->serverUninit();
    guard.SayGoodbye();
}

// All windows come back, and are reported again to the desktop that is current then.
void RestoreAll() noexcept {
    const bool enabled = boundLibrary->isEnabled() != 0;
    boundLibrary->disable();
    if (enabled) boundLibrary->enable();
}

bool HasDesktop(unsigned wanted) noexcept {
    const std::vector<NamedDesktop> desktops = DesktopsOf(*boundLibrary);
    return std::any_of(desktops.begin(), desktops.end(), [=](const NamedDesktop& one) { return one.id == wanted; });
}

void RestartSettings() noexcept {
    SendMessageA(boundLibrary->getServerHwnd(), HM_RESTART, boundLibrary->isEnabled() ? 1 : 0, 0);
}

Answer Failure(std::string text) {
    return {std::move(text), true};
}

Answer Switch(unsigned id) {
    if (!HasDesktop(id)) return Failure("Halyard has no desktop " + std::to_string(id) + "\n");
    if (!boundLibrary->setActiveDesktop(id)) return Failure("Halyard is turned off: no switch\n");
    return {};
}

Answer Config(unsigned page) {
    constexpr unsigned Pages = 4;
    if (page >= Pages) return Failure("The settings have no page " + std::to_string(page) + " (0 to 3)\n");
    boundLibrary->doConfigDlg(static_cast<int>(page));
    return {};
}

Answer Carry(const Command& command) {
    switch (command.action) {
    case Action::Status: return {StatusText(*boundLibrary, guard.Id()), false};
    case Action::Json: return {StatusJson(*boundLibrary, guard.Id()), false};
    case Action::Enable: boundLibrary->enable(); break;
    case Action::Disable: boundLibrary->disable(); break;
    case Action::Switch: return Switch(command.argument);
    case Action::Config: return Config(command.argument);
    case Action::Restore: RestoreAll(); break;
    case Action::RestartSettings: RestartSettings(); break;
    case Action::NoGuard: break;
    case Action::Quit: PostMessageA(residentWindow, WM_CLOSE, 0, 0); break;
    }
    return {};
}

Answer CarryAll(const Command* commands, std::size_t count) {
    const bool json =
        std::any_of(commands, commands + count, [](const Command& one) { return one.action == Action::Json; });
    Answer all;
    for (std::size_t index = 0; index < count; ++index) {
        // With --json the status is told as that, and once.
        if (json && commands[index].action == Action::Status) continue;
        const Answer answer = Carry(commands[index]);
        all.text += answer.text;
        all.failed = all.failed || answer.failed;
    }
    return all;
}

LRESULT OnCopyData(const COPYDATASTRUCT* data) {
    Request request;
    if (!data || !ReadRequest(*data, request)) return FALSE;
    SendReply(request, CarryAll(request.commands, request.count));
    return TRUE;
}

// Once this has answered the process may be ended at any moment.
LRESULT OnEndSession(bool ending) noexcept {
    if (ending) EndServer();
    return 0;
}

LRESULT OnDestroy() noexcept {
    EndServer();
    PostQuitMessage(0);
    return 0;
}

LRESULT OnTray(HWND window, LPARAM event) noexcept {
    const TrayRequest request = trayIcon.OnCallback(event);
    if (request == TrayRequest::RestoreAll) RestoreAll();
    if (request == TrayRequest::ShowTaskbars) RestartSettings();
    if (request == TrayRequest::Quit) PostMessageA(window, WM_CLOSE, 0, 0);
    return 0;
}

LRESULT OnTimer(WPARAM timer) noexcept {
    if (timer == TrayIcon::UpdateTimer && serverRunning) trayIcon.Update();
    return 0;
}

LRESULT CALLBACK ResidentWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (taskbarCreated && message == taskbarCreated) trayIcon.OnShellCame();
    switch (message) {
    case TrayIcon::CallbackMessage: return OnTray(window, lParam);
    case WM_TIMER: return OnTimer(wParam);
    case WM_COPYDATA: return OnCopyData(reinterpret_cast<const COPYDATASTRUCT*>(lParam));
    case WM_ENDSESSION: return OnEndSession(wParam != 0);
    case WM_DESTROY: return OnDestroy();
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

// On a thread of the system's. The console's close ends the process when this returns.
BOOL WINAPI OnConsoleEvent(DWORD) {
    PostMessageA(residentWindow, WM_CLOSE, 0, 0);
    WaitForSingleObject(endedEvent, EndTimeout);
    return TRUE;
}

WindowClass residentClass(ResidentClass, ResidentWndProc);

HWND MakeResidentWindow() noexcept {
    // A top-level window, never shown: the end of the session is told to those alone.
    HWND window = residentClass.Create(GetModuleHandleA(nullptr), 0, WS_POPUP, {});
    if (window) SetWindowTextA(window, "Halyard");
    return window;
}

// Until WM_QUIT. A guard that ends is replaced meanwhile.
void PumpMessages() noexcept {
    for (;;) {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT) return;
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        const HANDLE guardEnds = guard.Process();
        const DWORD handles = guardEnds ? 1 : 0;
        // Also for messages that have been in the queue before: one may come while the last look sees none.
        const DWORD outcome =
            MsgWaitForMultipleObjectsEx(handles, &guardEnds, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        if (handles && outcome == WAIT_OBJECT_0) guard.Replace();
    }
}

}  // namespace

int RunResident(const Library& library, const CommandLine& line) {
    boundLibrary = &library;
    endedEvent = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    library.serverInit();
    DWORD owner = 0;
    GetWindowThreadProcessId(library.getServerHwnd(), &owner);
    if (owner != GetCurrentProcessId()) {
        PrintError(FindWindowA(ServerWindowClass, nullptr) ? "tvlhload: Halyard already runs in another program\n"
                                                           : "tvlhload: Halyard can't make its window\n");
        return 1;
    }
    serverRunning = true;
    residentWindow = MakeResidentWindow();
    if (!residentWindow) {
        EndServer();
        return 1;
    }
    taskbarCreated = RegisterWindowMessageA("TaskbarCreated");
    trayIcon.Show(residentWindow, library);
    SetConsoleCtrlHandler(OnConsoleEvent, TRUE);
    Print(CarryAll(line.commands, line.count).text);
    if (!line.Has(Action::NoGuard)) guard.Start();
    PumpMessages();
    EndServer();
    SetEvent(endedEvent);
    return 0;
}

}  // namespace halyard::loader
