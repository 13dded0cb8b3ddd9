// Stands for the first-run wizard: leaves word of its start in the registry, and ends.
#include <windows.h>

#include <cstring>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    HKEY key = nullptr;
    RegCreateKeyExA(HKEY_CURRENT_USER, "Software\\HalyardWizardStandIn", 0, nullptr, REG_OPTION_NON_VOLATILE,
                    KEY_ALL_ACCESS, nullptr, &key, nullptr);
    const char* line = GetCommandLineA();
    RegSetValueExA(key, "CommandLine", 0, REG_SZ, reinterpret_cast<const BYTE*>(line),
                   static_cast<DWORD>(std::strlen(line) + 1));
    DWORD starts = 0;
    DWORD size = sizeof(starts);
    RegQueryValueExA(key, "Starts", nullptr, nullptr, reinterpret_cast<BYTE*>(&starts), &size);
    ++starts;
    RegSetValueExA(key, "Starts", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&starts), sizeof(starts));
    RegCloseKey(key);
    return 0;
}
