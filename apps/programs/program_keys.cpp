#include "programs/program_keys.h"

#include "common/wide_text_buffer.h"

#include <algorithm>

namespace halyard::programs {

namespace {

constexpr char ValueName[] = "Excluded";

std::string ProgramsKey() {
    return std::string(ProductKey) + "AppMem";
}

std::string FullPath(const std::string& path) {
    if (!TakesWideText()) {
        char full[MAX_PATH + 1] = {};
        char* name = nullptr;
        GetFullPathNameA(path.c_str(), MAX_PATH, full, &name);
        return full;
    }
    wchar_t full[MAX_PATH + 1] = {};
    wchar_t* name = nullptr;
    GetFullPathNameW(WideTextBuffer(path.c_str()).Text(), MAX_PATH, full, &name);
    return Narrow(full).Text();
}

// A key's name can't hold a backslash.
std::string KeyName(const std::string& path) {
    std::string text = FullPath(path);
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

}  // namespace

std::vector<std::string> ExcludedPrograms() {
    std::vector<std::string> programs;
    RegistryKey all;
    if (!all.Open(HKEY_CURRENT_USER, ProgramsKey().c_str(), KEY_READ)) return programs;
    for (DWORD index = 0;; ++index) {
        const TextBuffer name = all.SubkeyName(index);
        if (name.IsEmpty()) return programs;
        RegistryKey one;
        if (!one.Open(all.get(), name.Text(), KEY_READ) || !one.ReadBool(ValueName, false)) continue;
        std::string path = name.Text();
        std::replace(path.begin(), path.end(), '/', '\\');
        programs.push_back(path);
    }
}

bool OpenProgramKey(RegistryKey& key, const std::string& path) {
    return key.Open(HKEY_CURRENT_USER, (ProgramsKey() + "\\" + KeyName(path)).c_str(), KEY_READ);
}

bool SetExcludedProgram(const std::string& path, bool excluded) {
    RegistryKey key;
    if (!key.Create(HKEY_CURRENT_USER, (ProgramsKey() + "\\" + KeyName(path)).c_str())) return false;
    key.WriteDword(ValueName, excluded);
    return key.ReadBool(ValueName, !excluded) == excluded;
}

}  // namespace halyard::programs
