#include "taskbars/shell/tray_hook.h"

#include "common/handles.h"
#include "common/row.h"
#include "process/com.h"
#include "process/profile.h"
#include "process/protocol.h"
#include "process/shared_section.h"
#include "taskbars/shell/shell_tabs.h"

#include <commctrl.h>
#include <initializer_list>

namespace halyard {

namespace {

constexpr DWORD AnswerTimeout = 5000;  // ms
constexpr DWORD MostTabs = 4096;       // that are read, whatever the shell says

// On the server's thread.
struct Shell {
    unsigned scans = 0;     // that are under way
    bool isSilent = false;  // it let a question of the present scan go unanswered
    bool isRead = false;    // its list is in `order`
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

// The hook's messages to the server are let in meanwhile: the shell's thread may be waiting for just that.
bool WaitForAnswer(HANDLE answered) noexcept {
    const DWORD start = GetTickCount();
    for (DWORD waited = 0; waited < AnswerTimeout; waited = GetTickCount() - start) {
        if (MsgWaitForMultipleObjects(1, &answered, FALSE, AnswerTimeout - waited, QS_SENDMESSAGE) == WAIT_OBJECT_0)
            return true;
        MSG message;
        PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE | (QS_SENDMESSAGE << 16));
    }
    return WaitForSingleObject(answered, 0) == WAIT_OBJECT_0;
}

HANDLE HandleInProcess(HANDLE process, HANDLE own) noexcept {
    HANDLE duplicate = nullptr;
    DuplicateHandle(GetCurrentProcess(), own, process, &duplicate, 0, FALSE, DUPLICATE_SAME_ACCESS);
    return duplicate;
}

// The answer to one of TrayMessage; 0 when it couldn't be had.
DWORD AskTray(UINT message, WPARAM wParam) noexcept {
    HWND list = TrayListWindow();
    if (!list || shell.isSilent) return 0;
    DWORD processId = 0;
    GetWindowThreadProcessId(list, &processId);
    const KernelHandle process(OpenProcess(PROCESS_DUP_HANDLE, FALSE, processId));
    const KernelHandle answered(CreateEventA(nullptr, FALSE, FALSE, nullptr));
    if (!process || !answered) return 0;
    HANDLE duplicate = HandleInProcess(process.get(), answered.get());
    if (!duplicate) return 0;
    // The duplicate is the hook's to close from here on.
    if (PostMessageA(list, message, wParam, reinterpret_cast<LPARAM>(duplicate)) && WaitForAnswer(answered.get()))
        return TrayAnswer();
    shell.isSilent = shell.scans > 0;
    return 0;
}

// Whether `order` has the list for the present scan. Each question costs the time that the shell needs to come round to
// it, which a question for every pair of windows would make long.
bool ReadOrder() noexcept {
    if (shell.scans == 0 || shell.isRead) return shell.isRead;
    for (DWORD index = 0; index < MostTabs; ++index) {
        const DWORD window = AskTray(TM_WINDOW_AT, index);
        if (window == NotInTray) break;
        if (window == 0) return false;
        shell.order.Add(HandleFromBits<HWND>(window));
    }
    shell.isRead = true;
    return true;
}

}  // namespace

bool InstallTrayHook() noexcept {
    RemoveTrayHook();
    BindCom();
    if (!CreateTaskbarList()) return false;
    HWND tray = TrayWindow();
    SetTrayListWindow(FindTrayList(tray));
    // Without a task list there is nothing to be asked nor to be kept from anything.
    if (!TrayListWindow()) return false;
    SetTrayHook(SetWindowsHookExA(WH_GETMESSAGE, TrayHookProc, profile.moduleInstance,
                                  GetWindowThreadProcessId(tray, nullptr)));
    Wake(tray);
    return true;
}

void RemoveTrayHook() noexcept {
    if (!TrayHook()) return;
    UnhookWindowsHookEx(TrayHook());
    Wake(TrayWindow());
    SetTrayHook(nullptr);
}

DWORD TrayIndexOf(HWND window) noexcept {
    if (!ReadOrder()) return AskTray(TM_FIND_WINDOW, reinterpret_cast<WPARAM>(window));
    for (unsigned index = 0; index < shell.order.Count(); ++index)
        if (shell.order.At(index) == window) return index;
    return NotInTray;
}

HWND TrayWindowAt(DWORD index) noexcept {
    if (ReadOrder()) return index < shell.order.Count() ? shell.order.At(index) : nullptr;
    const DWORD window = AskTray(TM_WINDOW_AT, index);
    return window == NotInTray ? nullptr : HandleFromBits<HWND>(window);
}

TrayScan::TrayScan() noexcept {
    ++shell.scans;
}

TrayScan::~TrayScan() {
    if (--shell.scans > 0) return;
    shell.isSilent = false;
    shell.isRead = false;
    shell.order.Clear();
}

}  // namespace halyard
