#include "support/registry.h"

#include "support/published.h"

#include <algorithm>

#include <shlwapi.h>

namespace halyard::test {

namespace {

std::string Read(HKEY hive, const std::string& key, const char* name) {
    char text[1024] = {};
    DWORD size = sizeof(text) - 1;
    SHGetValueA(hive, key.c_str(), name, nullptr, text, &size);
    return text;
}

void Write(HKEY hive, const std::string& key, const char* name, const std::string& text) {
    SHSetValueA(hive, key.c_str(), name, REG_SZ, text.c_str(), static_cast<DWORD>(text.size() + 1));
}

}  // namespace

void WriteNumber(const std::string& key, const char* name, DWORD number) {
    SHSetValueA(HKEY_CURRENT_USER, key.c_str(), name, REG_DWORD, &number, sizeof(number));
}

void WriteText(const std::string& key, const char* name, const std::string& text) {
    Write(HKEY_CURRENT_USER, key, name, text);
}

DWORD NumberOr(const std::string& key, const char* name, DWORD missing) {
    DWORD number = 0;
    DWORD size = sizeof(number);
    const LSTATUS result = SHGetValueA(HKEY_CURRENT_USER, key.c_str(), name, nullptr, &number, &size);
    return result == ERROR_SUCCESS && size == sizeof(number) ? number : missing;
}

std::string TextOf(const std::string& key, const char* name) {
    return Read(HKEY_CURRENT_USER, key, name);
}

void DeleteValue(const std::string& key, const char* name) {
    SHDeleteValueA(HKEY_CURRENT_USER, key.c_str(), name);
}

void DeleteKey(const std::string& key) {
    SHDeleteKeyA(HKEY_CURRENT_USER, key.c_str());
}

std::string DesktopKey(int id) {
    return std::string(published::ProductKey) + "\\Desktops\\" + std::to_string(id);
}

std::string ProgramKey(const std::string& path) {
    std::string name = path;
    std::replace(name.begin(), name.end(), '\\', '/');
    return std::string(published::ProductKey) + "\\AppMem\\" + name;
}

// In the classes of the machine, of this program's bitness: the runtime doesn't look into the user's.
ClassRegistration::ClassRegistration(const char* classId, const std::string& path)
    : key(std::string("CLSID\\") + classId + "\\InprocServer32"), before(Read(HKEY_CLASSES_ROOT, key, nullptr)) {
    Write(HKEY_CLASSES_ROOT, key, nullptr, path);
}

ClassRegistration::~ClassRegistration() {
    Write(HKEY_CLASSES_ROOT, key, nullptr, before);
}

}  // namespace halyard::test
