#include "autostart/autostart.h"

#include "files/files.h"
#include "settings/registry_key.h"

#include <string>

namespace halyard {

namespace {

constexpr char RunKey[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr char ValueName[] = "Halyard";

class RunValue {
public:
    RunValue(HKEY hive, REGSAM access) noexcept { key.Open(hive, RunKey, access); }
    bool Exists() const noexcept {
        return key && RegQueryValueExA(key.get(), ValueName, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
    }
    bool Write(const std::string& text) const noexcept {
        if (key) key.WriteString(ValueName, text.c_str());
        return Exists();
    }
    bool Delete() const noexcept { return key && RegDeleteValueA(key.get(), ValueName) == ERROR_SUCCESS; }

private:
    RegistryKey key;
};

// Installed, this program lies two folders below the launcher: in that of the version and of the bitness.
std::string StartedProgram() {
    const std::string folder = OwnFolder();
    const auto above = [](const std::string& path) { return path.substr(0, path.rfind('\\', path.size() - 2) + 1); };
    const std::string launcher = above(above(folder)) + "halyard.exe";
    return FileExists(launcher) ? launcher : folder + "tvlhload.exe";
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
