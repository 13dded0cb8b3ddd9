#include "loader/start_self.h"

#include <cstdio>

namespace halyard::loader {

KernelHandle StartSelf(const char* switches, DWORD& id) noexcept {
    constexpr int PathRoom = MAX_PATH + 2;
    char path[PathRoom] = {};
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    char line[PathRoom + 32];
    std::snprintf(line, sizeof(line), "\"%s\"%s", path, switches);
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started = {};
    if (!CreateProcessA(path, line, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &started)) return {};
    const KernelHandle thread(started.hThread);
    id = started.dwProcessId;
    return KernelHandle(started.hProcess);
}

}  // namespace halyard::loader
