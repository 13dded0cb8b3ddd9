#include "programs/running_programs.h"

#include "common/entry.h"
#include "common/handles.h"
#include "common/wide_text_buffer.h"

#include <tlhelp32.h>

namespace halyard::programs {

namespace {

using QueryImageNameFn = BOOL(WINAPI*)(HANDLE, DWORD, wchar_t*, DWORD*);

std::string FileName(const std::string& path) {
    const std::size_t slash = path.find_last_of("\\/");
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string PathOf(DWORD process) {
    constexpr DWORD QueryLimited = 0x1000;
    const auto query = EntryOf<QueryImageNameFn>(GetModuleHandleA("kernel32.dll"), "QueryFullProcessImageNameW");
    const KernelHandle handle(OpenProcess(QueryLimited, FALSE, process));
    wchar_t path[MAX_PATH + 1] = {};
    DWORD room = MAX_PATH;
    if (!query || !handle || !query(handle.get(), 0, path, &room)) return {};
    return Narrow(path).Text();
}

bool IsInside(DWORD process) noexcept {
    const HANDLE found = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, process);
    if (found == INVALID_HANDLE_VALUE) return false;
    const KernelHandle snapshot(found);
    MODULEENTRY32 module = {};
    module.dwSize = sizeof(module);
    for (BOOL more = Module32First(found, &module); more; more = Module32Next(found, &module))
        if (lstrcmpiA(module.szModule, "tvlHalyd.dll") == 0) return true;
    return false;
}

}  // namespace

std::vector<RunningProgram> ProgramsInside() {
    std::vector<RunningProgram> programs;
    const HANDLE found = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (found == INVALID_HANDLE_VALUE) return programs;
    const KernelHandle snapshot(found);
    PROCESSENTRY32 process = {};
    process.dwSize = sizeof(process);
    for (BOOL more = Process32First(found, &process); more; more = Process32Next(found, &process)) {
        const DWORD id = process.th32ProcessID;
        if (id == GetCurrentProcessId() || !IsInside(id)) continue;
        const std::string path = PathOf(id);
        programs.push_back({id, path.empty() ? std::string(process.szExeFile) : FileName(path), path});
    }
    return programs;
}

}  // namespace halyard::programs
