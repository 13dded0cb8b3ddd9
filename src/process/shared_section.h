// The block of memory that all processes with the library share. Nothing else of the system reaches into it by itself:
// who needs a field goes through these functions, so that another bitness can be kept in step here one day.
#pragma once

#include "common/win_types.h"
#include "process/protocol.h"

namespace halyard {

// Handles are stored in 32 bits, which is all that they carry in programs of either bitness. No lock: every field has
// one writer at a time, is a single word or byte, and a reader in another process may see a slightly old value.
#pragma pack(push, 1)
struct SharedBlock {
    DWORD trayHook;            // thread hook on the shell's tray thread
    DWORD trayListWindow;      // task-list control of the shell's taskbar
    DWORD trayAnswer;          // reply slot of the questions to the shell's tray thread
    DWORD currentDesktopId;    // 0 is the default desktop
    DWORD callWndProcRetHook;  // 0 when not installed
    DWORD getMessageHook;      // 0 when not installed
    DWORD serverWindow;        // 0 when there is none
    BYTE hooksInstalled;       // 0 or 1
};
#pragma pack(pop)
static_assert(sizeof(SharedBlock) == 29);

extern volatile SharedBlock sharedBlock;

// The 32 significant bits of a handle, and the handle that they stand for.
template <typename Handle>
DWORD HandleBits(Handle handle) noexcept {
    return static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(handle));
}
template <typename Handle>
Handle HandleFromBits(DWORD bits) noexcept {
    return reinterpret_cast<Handle>(static_cast<LONG_PTR>(static_cast<LONG>(bits)));
}

inline HWND ServerWindow() noexcept {
    return HandleFromBits<HWND>(sharedBlock.serverWindow);
}
inline void SetServerWindow(HWND window) noexcept {
    sharedBlock.serverWindow = HandleBits(window);
}

inline HHOOK TrayHook() noexcept {
    return HandleFromBits<HHOOK>(sharedBlock.trayHook);
}
inline void SetTrayHook(HHOOK hook) noexcept {
    sharedBlock.trayHook = HandleBits(hook);
}

inline HWND TrayListWindow() noexcept {
    return HandleFromBits<HWND>(sharedBlock.trayListWindow);
}
inline void SetTrayListWindow(HWND window) noexcept {
    sharedBlock.trayListWindow = HandleBits(window);
}

inline DWORD TrayAnswer() noexcept {
    return sharedBlock.trayAnswer;
}
inline void SetTrayAnswer(DWORD answer) noexcept {
    sharedBlock.trayAnswer = answer;
}

inline DesktopId CurrentDesktopId() noexcept {
    return sharedBlock.currentDesktopId;
}
inline void SetCurrentDesktopId(DesktopId id) noexcept {
    sharedBlock.currentDesktopId = id;
}

inline bool HooksInstalled() noexcept {
    return sharedBlock.hooksInstalled != 0;
}
inline void SetHooksInstalled(bool installed) noexcept {
    sharedBlock.hooksInstalled = installed ? 1 : 0;
}

inline HHOOK CallWndProcRetHook() noexcept {
    return HandleFromBits<HHOOK>(sharedBlock.callWndProcRetHook);
}
inline void SetCallWndProcRetHook(HHOOK hook) noexcept {
    sharedBlock.callWndProcRetHook = HandleBits(hook);
}

inline HHOOK GetMessageHook() noexcept {
    return HandleFromBits<HHOOK>(sharedBlock.getMessageHook);
}
inline void SetGetMessageHook(HHOOK hook) noexcept {
    sharedBlock.getMessageHook = HandleBits(hook);
}

}  // namespace halyard
