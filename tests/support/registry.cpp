#include "support/registry.h"

#include "support/published.h"

#include <algorithm>

#include <shlwapi.h>

namespace halyard::test {

void Store(const std::string& key, const char* name, DWORD type, const std::string& bytes, HKEY hive) {
    // The platform looks past the bytes, and closes a text for whom it finds a zero there.
    const std::string room = bytes + 'x';
    SHSetValueA(hive, key.c_str(), name, type, room.data(), static_cast<DWORD>(bytes.size()));
}

void WriteNumber(const std::string& key, const char* name, DWORD number, HKEY hive) {
    Store(key, name, REG_DWORD, std::string(reinterpret_cast<const char*>(&number), sizeof(number)), hive);
}

void WriteText(const std::string& key, const char* name, const std::string& text, HKEY hive) {
    Store(key, name, REG_SZ, text + '\0', hive);
}

DWORD NumberOr(const std::string& key, const char* name, DWORD missing, HKEY hive) {
    DWORD number = 0, type = 0, size = sizeof(number);
    const LSTATUS result = SHGetValueA(hive, key.c_str(), name, &type, &number, &size);
    return result == ERROR_SUCCESS && type == REG_DWORD ? number : missing;
}

std::string BytesOf(const std::string& key, const char* name, HKEY hive) {
    char bytes[1024] = {};
    DWORD size = sizeof(bytes);
    return SHGetValueA(hive, key.c_str(), name, nullptr, bytes, &size) ? std::string() : std::string(bytes, size);
}

std::string TextOf(const std::string& key, const char* name, HKEY hive) {
    return BytesOf(key, name, hive).c_str();
}

void MakeKey(const std::string& key, HKEY hive) {
    HKEY made = nullptr;
    RegCreateKeyA(hive, key.c_str(), &made);
    RegCloseKey(made);
}

void DeleteKey(const std::string& key, HKEY hive) {
    SHDeleteKeyA(hive, key.c_str());
}

Names NamesIn(const std::string& key, HKEY hive) {
    Names names;
    HKEY opened = nullptr;
    RegOpenKeyExA(hive, key.c_str(), 0, KEY_READ, &opened);
    char name[261];
    for (DWORD index = 0, size = 260; !SHEnumKeyExA(opened, index, name, &size); ++index, size = 260)
        names.push_back(std::string(name) + "\\");
    for (DWORD index = 0, size = 260; !SHEnumValueA(opened, index, name, &size, nullptr, nullptr, nullptr);
         ++index, size = 260)
        names.push_back(name);
    RegCloseKey(opened);
    std::sort(names.begin(), names.end());
    return names;
}

std::string DesktopKey(int id) {
    return std::string(published::ProductKey) + "\\Desktops\\" + std::to_string(id);
}

std::string ProgramKey(const std::string& path) {
    std::string name = path;
    std::replace(name.begin(), name.end(), '\\', '/');
    return std::string(published::ProductKey) + "\\AppMem\\" + name;
}

// In the classes of the machine, of this program's bitness: Wine doesn't look into the user's.
ClassRegistration::ClassRegistration(const char* classId, const std::string& path)
    : key(std::string("CLSID\\") + classId + "\\InprocServer32"), before(TextOf(key, nullptr, HKEY_CLASSES_ROOT)) {
    WriteText(key, nullptr, path, HKEY_CLASSES_ROOT);
}

}  // namespace halyard::test
