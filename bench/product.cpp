#include "bench/product.h"

namespace halyard::bench {

namespace {

constexpr char LoaderClass[] = "TevralHalyardLoaderWndClass";

void Store(const char* path, const char* name, DWORD value) {
    HKEY key = nullptr;
    const std::string whole = std::string("Software\\Tevral, Inc.\\Halyard\\") + path;
    RegCreateKeyExA(HKEY_CURRENT_USER, whole.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    RegSetValueExA(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof(value));
    RegCloseKey(key);
}

std::string Loader(const char* switches) {
    return "\"" + Beside("tvlhload.exe") + "\" " + switches;
}

}  // namespace

std::string Beside(const char* file) {
    char path[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, path, MAX_PATH - 1);
    const std::string own = path;
    return own.substr(0, own.rfind('\\') + 1) + file;
}

bool RunProgram(std::string line, bool wait, DWORD* code) {
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started = {};
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &started))
        return false;
    const bool ended = !wait || WaitForSingleObject(started.hProcess, ProductPatience) == WAIT_OBJECT_0;
    if (code) GetExitCodeProcess(started.hProcess, code);
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    return ended;
}

bool CommandProduct(const char* switches) {
    return RunProgram(Loader(switches), true);
}

bool StartProduct() {
    for (const char* name : {"Run", "RunWizard", "MultiDesk"})
        Store("", name, 1);
    Store("Desktops\\1", "Colour", GetSysColor(COLOR_BACKGROUND));
    if (!RunProgram(Loader(""), false)) return false;
    const DWORD start = GetTickCount();
    while (!FindWindowA(LoaderClass, nullptr)) {
        if (GetTickCount() - start > ProductPatience) return false;
        Sleep(10);
    }
    return true;
}

void EndProduct() {
    PostMessageA(FindWindowA(LoaderClass, nullptr), WM_CLOSE, 0, 0);
}

}  // namespace halyard::bench
