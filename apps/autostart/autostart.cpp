#include "autostart/autostart.h"

#include <string>
#include <windows.h>

namespace halyard {

namespace {

constexpr char RunKey[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr char ValueName[] = "Halyard";

class RunValue {
public:
    explicit RunValue(HKEY hive, REGSAM access) noexcept {
        if (RegOpenKeyExA(hive, RunKey, 0, access, &key) != ERROR_SUCCESS) key = nullptr;
    }
    RunValue(const RunValue&) = delete;
    RunValue& operator=(const RunValue&) = delete;
    ~RunValue() {
        if (key) RegCloseKey(key);
    }
    bool Exists() const noexcept {
        return key && RegQueryValueExA(key, ValueName, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
    }
    bool Write(const std::string& text) const noexcept {
        return key && RegSetValueExA(key, ValueName, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                                     static_cast<DWORD>(text.size() + 1)) == ERROR_SUCCESS;
    }
    bool Delete() const noexcept { return key && RegDeleteValueA(key, ValueName) == ERROR_SUCCESS; }

private:
    HKEY key = nullptr;
};

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('\\');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

// Installed, this program lies two folders below the launcher: in that of the version and of the bitness.
std::string StartedProgram() {
    char own[MAX_PATH + 1] = {};
    GetModuleFileNameA(nullptr, own, MAX_PATH);
    const std::string folder = FolderOf(own);
    const std::string launcher = FolderOf(FolderOf(folder)) + "\\halyard.exe";
    if (GetFileAttributesA(launcher.c_str()) != INVALID_FILE_ATTRIBUTES) return launcher;
    return folder + "\\tvlhload.exe";
}

}  // namespace

bool IsAutostartOn() noexcept {
    return RunValue(HKEY_CURRENT_USER, KEY_READ).Exists() || RunValue(HKEY_LOCAL_MACHINE, KEY_READ).Exists();
}

bool SetAutostart(bool on) noexcept {
    const RunValue value(HKEY_CURRENT_USER, KEY_READ | KEY_WRITE);
    if (on) return IsAutostartOn() || value.Write("\"" + StartedProgram() + "\"");
    // One for all users is the administrator's, who may not be this one.
    if (value.Exists() && !value.Delete()) return false;
    const RunValue everybody(HKEY_LOCAL_MACHINE, KEY_READ | KEY_WRITE);
    if (everybody.Exists()) everybody.Delete();
    return !IsAutostartOn();
}

}  // namespace halyard
