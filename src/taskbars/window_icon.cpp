#include "taskbars/window_icon.h"

#include "common/handles.h"
#include "process/profile.h"

#include <shellapi.h>

namespace halyard {

namespace {

constexpr WPARAM OwnIcons[] = {ICON_SMALL2, ICON_SMALL, ICON_BIG};  // in this order
constexpr ULONG_PTR OwnIconCount = sizeof(OwnIcons) / sizeof(OwnIcons[0]);

struct Questions {
    IconReceiver receive = nullptr;  // one for all
    unsigned open = 0;               // that programs haven't answered yet
    bool libraryKept = false;
};

Questions questions;

bool GiveClassIcon(HWND window, int which) noexcept {
    const auto icon = reinterpret_cast<HICON>(static_cast<ULONG_PTR>(GetClassLongPtrA(window, which)));
    return icon && questions.receive(window, icon);
}

// Where icons are good in their own program only, that program's file has one for everybody.
bool GiveProgramIcon(HWND window) noexcept {
    constexpr DWORD QueryLimited = 0x1000;
    using QueryImageNameFn = BOOL(WINAPI*)(HANDLE, DWORD, char*, DWORD*);
    const auto queryImageName =
        EntryOf<QueryImageNameFn>(GetModuleHandleA("kernel32.dll"), "QueryFullProcessImageNameA");
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    const KernelHandle process(OpenProcess(QueryLimited, FALSE, processId));
    char path[PathRoom] = {};
    DWORD room = PathRoom;
    if (!queryImageName || !process || !queryImageName(process.get(), 0, path, &room)) return false;
    HICON icon = nullptr;
    ExtractIconExA(path, 0, nullptr, &icon, 1);
    if (!icon) return false;
    const bool given = questions.receive(window, icon);
    DestroyIcon(icon);
    return given;
}

void GiveOutsideIcon(HWND window) noexcept {
    if (GiveClassIcon(window, GCLP_HICONSM) || GiveClassIcon(window, GCLP_HICON)) return;
    const bool isDialog = (GetWindowLongA(window, GWL_STYLE) & static_cast<LONG>(WS_POPUP)) ||
                          (GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_DLGMODALFRAME);
    if (isDialog || GiveProgramIcon(window)) return;
    questions.receive(window, LoadIconA(nullptr, IDI_WINLOGO));
}

void Ask(HWND window, ULONG_PTR index) noexcept;

void CALLBACK OnAnswer(HWND window, UINT, ULONG_PTR index, LRESULT icon) noexcept {
    --questions.open;
    if (!icon || !questions.receive(window, reinterpret_cast<HICON>(icon))) Ask(window, index + 1);
}

void Ask(HWND window, ULONG_PTR index) noexcept {
    if (index < OwnIconCount && SendMessageCallbackA(window, WM_GETICON, OwnIcons[index], 0, OnAnswer, index))
        ++questions.open;
}

}  // namespace

void FindIcon(HWND window, IconReceiver receive) noexcept {
    questions.receive = receive;
    GiveOutsideIcon(window);
    Ask(window, 0);
}

void OutliveIconAnswers() noexcept {
    if (questions.open == 0 || questions.libraryKept) return;
    questions.libraryKept = LoadLibraryA(ModulePath(profile.moduleInstance).text) != nullptr;
}

}  // namespace halyard
