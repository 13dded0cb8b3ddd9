#include "taskbars/shell/tray_hook.h"

#include "common/handles.h"
#include "common/message_wait.h"
#include "common/row.h"
#include "process/com.h"
#include "process/failures.h"
#include "process/hook_record.h"
#include "process/profile.h"
#include "process/protocol.h"
#include "process/shared_section.h"
#include "taskbars/shell/shell_silence.h"
#include "taskbars/shell/shell_tabs.h"

#include <commctrl.h>
#include <initializer_list>
#include <optional>

namespace halyard {

namespace {

constexpr DWORD AnswerTimeout = 1000;  // ms; a switch of desktops may be waiting for this thread
constexpr DWORD MostTabs = 4096;       // that are read, whatever the shell says

// On the server's thread.
struct Shell {
    unsigned scans = 0;  // that are under way
    bool isReading = false;
    bool isRead = false;  // its list is in `order`
    Row<HWND> order;
};

Shell shell;

HWND TrayWindow() noexcept {
    return FindWindowA("Shell_TrayWnd", nullptr);
}

HWND FindTrayList(HWND tray) noexcept {
    // Without a parent the platform would search the whole desktop.
    HWND found = tray;
    for (const char* name :
         {"ReBarWindow32", "MSTaskSwWClass", profile.isWindows2000 ? WC_TABCONTROLA : TOOLBARCLASSNAMEA})
        found = found ? FindWindowExA(found, nullptr, name, nullptr) : nullptr;
    return found;
}

// Lets the thread take the hook in, or drop it, without waiting for it.
void Wake(HWND tray) noexcept {
    if (tray) SendNotifyMessageA(tray, WM_NULL, 0, 0);
}

HANDLE HandleInProcess(HANDLE process, HANDLE own) noexcept {
    HANDLE duplicate = nullptr;
    DuplicateHandle(GetCurrentProcess(), own, process, &duplicate, 0, FALSE, DUPLICATE_SAME_ACCESS);
    return duplicate;
}

// The answer to one of TrayMessage; empty when it couldn't be had.
std::optional<DWORD> AskTray(UINT message, WPARAM wParam) noexcept {
    HWND list = TrayListWindow();
    if (!list || !TrayHook() || IsShellSilent()) return {};
    DWORD processId = 0;
    GetWindowThreadProcessId(list, &processId);
    const KernelHandle process(OpenProcess(PROCESS_DUP_HANDLE, FALSE, processId));
    const KernelHandle answered(CreateEventA(nullptr, FALSE, FALSE, nullptr));
    if (!process || !answered) return {};
    HANDLE duplicate = HandleInProcess(process.get(), answered.get());
    if (!duplicate) return {};
    // The duplicate is the hook's to close from here on.
    NoteShellAnswer(PostMessageA(list, message, wParam, reinterpret_cast<LPARAM>(duplicate)) &&
                    WaitAnswering(answered.get(), AnswerTimeout));
    if (IsShellSilent()) return {};
    return TrayAnswer();
}

// False when the shell stops answering.
bool ReadWholeList() noexcept {
    for (DWORD index = 0; index < MostTabs; ++index) {
        const std::optional<DWORD> window = AskTray(TM_WINDOW_AT, index);
        if (!window) return false;
        if (*window == NotInTray) break;
        // An item without a window keeps its place: it is nobody's, and so never counted.
        shell.order.Add(HandleFromBits<HWND>(*window));
    }
    return true;
}

// Whether `order` has the list for the present scan. Each question costs the time that the shell needs to come round to
// it, which a question for every pair of windows would make long.
bool ReadOrder() noexcept {
    // A message that comes in during the reading finds no order, and must not begin another one.
    if (shell.scans == 0 || shell.isRead || shell.isReading) return shell.isRead;
    shell.isReading = true;
    shell.isRead = ReadWholeList();
    shell.isReading = false;
    if (!shell.isRead) shell.order.Clear();
    return shell.isRead;
}

}  // namespace

bool InstallTrayHook() noexcept {
    RemoveTrayHook();
    BindCom();
    if (!CreateTaskbarList()) return false;
    HWND tray = TrayWindow();
    if (!tray) return false;
    NoteShellAnswer(true);  // it may be another one
    // A list of another kind can't be read; its taskbar is kept from windows of others all the same.
    SetTrayListWindow(FindTrayList(tray));
    SetTrayHook(SetWindowsHookExA(WH_GETMESSAGE, TrayHookProc, profile.moduleInstance,
                                  GetWindowThreadProcessId(tray, nullptr)));
    RecordHook(OwnHook::ShellTray, TrayHook());
    if (!TrayHook()) {
        KeepFailure("the hook in the shell");
        return false;
    }
    Wake(tray);
    return true;
}

void RemoveTrayHook() noexcept {
    if (!TrayHook()) return;
    UnhookWindowsHookEx(TrayHook());
    RecordHook(OwnHook::ShellTray, nullptr);
    Wake(TrayWindow());
    SetTrayHook(nullptr);
}

std::optional<DWORD> TrayIndexOf(HWND window) noexcept {
    if (!ReadOrder()) return {};
    const unsigned index = shell.order.IndexOf(window);
    if (index == shell.order.Count()) return {};
    return index;
}

HWND TrayWindowAt(DWORD index) noexcept {
    return index < shell.order.Count() ? shell.order.At(index) : nullptr;
}

TrayScan::TrayScan() noexcept {
    ++shell.scans;
}

TrayScan::~TrayScan() {
    if (--shell.scans > 0) return;
    shell.isRead = false;
    shell.order.Clear();
}

}  // namespace halyard
