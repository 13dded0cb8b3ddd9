#include "support/children.h"

#include <tlhelp32.h>

namespace halyard::test {

namespace {

constexpr DWORD RunLimit = 15000;  // ms
constexpr DWORD PipeRoom = 0x8000;

}  // namespace

HMODULE Child::Module(const char* name) const {
    const KernelHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, id));
    MODULEENTRY32 entry = {};
    entry.dwSize = sizeof(entry);
    for (BOOL more = Module32First(snapshot.get(), &entry); more; more = Module32Next(snapshot.get(), &entry))
        if (lstrcmpiA(entry.szModule, name) == 0) return entry.hModule;
    return nullptr;
}

Children::Children() : job(CreateJobObjectA(nullptr, nullptr)) {
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits, sizeof(limits));
}

Child* Children::Start(const std::string& commandLine, HANDLE out) {
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = out ? STARTF_USESTDHANDLES : 0;
    startup.hStdOutput = startup.hStdError = out;
    PROCESS_INFORMATION made = {};
    std::string line = commandLine;
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, out != nullptr, CREATE_SUSPENDED, nullptr, nullptr,
                        &startup, &made))
        return nullptr;
    AssignProcessToJobObject(job.get(), made.hProcess);
    ResumeThread(made.hThread);
    CloseHandle(made.hThread);
    return &started.emplace_back(made.hProcess, made.dwProcessId);
}

Output Children::Run(const std::string& commandLine) {
    SECURITY_ATTRIBUTES inherited = {sizeof(inherited), nullptr, TRUE};
    HANDLE ends[2] = {};
    CreatePipe(&ends[0], &ends[1], &inherited, PipeRoom);
    const KernelHandle reading(ends[0]), writing(ends[1]);
    Output output;
    const Child* child = Start(commandLine, writing.get());
    if (child && child->Ends(RunLimit)) output.status = child->ExitStatus();
    // The output is short enough to wait in the pipe. A program that was started by this one may hold the pipe open.
    char text[PipeRoom];
    DWORD size = 0;
    PeekNamedPipe(reading.get(), text, PipeRoom, &size, nullptr, nullptr);
    output.out.assign(text, size);
    return output;
}

void Children::EndAll() {
    TerminateJobObject(job.get(), 98);
    for (const Child& child : started)
        child.Ends(EndLimit);
}

unsigned Children::CountRunning() const {
    JOBOBJECT_BASIC_ACCOUNTING_INFORMATION counts = {};
    QueryInformationJobObject(job.get(), JobObjectBasicAccountingInformation, &counts, sizeof(counts), nullptr);
    return counts.ActiveProcesses;
}

}  // namespace halyard::test
