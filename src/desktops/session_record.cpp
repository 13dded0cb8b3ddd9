#include "desktops/session_record.h"

#include "desktops/desktop_storage.h"
#include "process/shared_section.h"
#include "settings/registry_key.h"

#include <memory>
#include <new>

namespace halyard {

namespace {

constexpr char SessionKey[] = "Software\\Tevral, Inc.\\Halyard\\Session";
constexpr char BackgroundKey[] = "Default";
constexpr char HiddenValue[] = "HiddenWindows";
constexpr DWORD MaxHiddenBytes = 0x10000;

void ShowLeftWindows(const RegistryKey& session) noexcept {
    DWORD size = MaxHiddenBytes;
    const std::unique_ptr<HiddenWindow[]> left(new (std::nothrow) HiddenWindow[MaxHiddenBytes / sizeof(HiddenWindow)]);
    if (!left || session.ReadBytes(HiddenValue, left.get(), size) != ERROR_SUCCESS) return;
    for (DWORD index = 0; index < size / sizeof(HiddenWindow); ++index) {
        HWND window = HandleFromBits<HWND>(left[index].window);
        DWORD process = 0;
        if (GetWindowThreadProcessId(window, &process) && process == left[index].process && !IsWindowVisible(window))
            ShowWindowAsync(window, SW_SHOWNA);
    }
}

}  // namespace

void KeepHiddenWindows(const HiddenWindow* windows, unsigned count) noexcept {
    RegistryKey session;
    if (session.Create(HKEY_CURRENT_USER, SessionKey, REG_OPTION_VOLATILE))
        session.WriteBytes(HiddenValue, windows, count * sizeof(HiddenWindow));
}

void KeepDefaultBackground(const Desktop& standard) noexcept {
    RegistryKey session;
    RegistryKey background;
    if (session.Create(HKEY_CURRENT_USER, SessionKey, REG_OPTION_VOLATILE) &&
        background.Create(session.get(), BackgroundKey, REG_OPTION_VOLATILE))
        WriteDesktop(background, standard);
}

void DropDefaultBackground() noexcept {
    RegistryKey session;
    if (session.Open(HKEY_CURRENT_USER, SessionKey, KEY_ALL_ACCESS)) session.DeleteSubkey(BackgroundKey);
}

bool RecoverSession(Desktop& standard) noexcept {
    RegistryKey session;
    if (!session.Open(HKEY_CURRENT_USER, SessionKey, KEY_ALL_ACCESS)) return false;
    ShowLeftWindows(session);
    RegistryKey background;
    const bool kept = background.Open(session.get(), BackgroundKey, KEY_READ);
    if (kept) {
        const TextBuffer name = standard.name;
        ReadDesktop(background, standard);
        standard.name = name;
        background.Close();
    }
    session.DeleteContents();
    return kept;
}

}  // namespace halyard
