#include "loader/excluded.h"

#include "settings/registry_key.h"

#include <algorithm>

namespace halyard::loader {

namespace {

constexpr char ValueName[] = "Excluded";

std::string ProgramsKey() {
    return std::string(ProductKey) + "AppMem";
}

// A key's name can't hold a backslash.
std::string KeyName(const std::string& path) {
    char full[MAX_PATH + 1] = {};
    char* name = nullptr;
    GetFullPathNameA(path.c_str(), MAX_PATH, full, &name);
    std::string text = full;
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

}  // namespace

std::vector<std::string> ExcludedPrograms() {
    std::vector<std::string> programs;
    RegistryKey all;
    if (!all.Open(HKEY_CURRENT_USER, ProgramsKey().c_str(), KEY_READ)) return programs;
    char name[261];
    for (DWORD index = 0; all.SubkeyName(index, name); ++index) {
        RegistryKey one;
        if (!one.Open(all.get(), name, KEY_READ) || !one.ReadBool(ValueName, false)) continue;
        std::string path = name;
        std::replace(path.begin(), path.end(), '/', '\\');
        programs.push_back(path);
    }
    return programs;
}

bool SetExcludedProgram(const std::string& path, bool excluded) {
    RegistryKey key;
    if (!key.Create(HKEY_CURRENT_USER, (ProgramsKey() + "\\" + KeyName(path)).c_str())) return false;
    key.WriteDword(ValueName, excluded);
    return key.ReadBool(ValueName, !excluded) == excluded;
}

}  // namespace halyard::loader
