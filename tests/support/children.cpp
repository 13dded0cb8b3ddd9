#include "support/children.h"

#include <tlhelp32.h>

namespace halyard::test {

namespace {

constexpr DWORD RunLimit = 15000;  // ms
constexpr DWORD EndLimit = 5000;   // ms
constexpr DWORD PipeRoom = 0x10000;

// A program's output is short enough to wait in the pipe for its end.
struct OutputPipe {
    OutputPipe() {
        SECURITY_ATTRIBUTES inherited = {sizeof(inherited), nullptr, TRUE};
        HANDLE ends[2] = {};
        CreatePipe(&ends[0], &ends[1], &inherited, PipeRoom);
        reading.Reset(ends[0]);
        writing.Reset(ends[1]);
    }
    // What stands in the pipe, without waiting: a program that was started by the program may hold it open.
    std::string Text() const {
        std::string text(PipeRoom, 0);
        DWORD size = 0;
        PeekNamedPipe(reading.get(), text.data(), PipeRoom, &size, nullptr, nullptr);
        return text.substr(0, size);
    }
    KernelHandle reading, writing;
};

}  // namespace

DWORD Child::ExitStatus() const {
    DWORD status = 0;
    GetExitCodeProcess(Handle(), &status);
    return status;
}

void Child::Kill() const {
    TerminateProcess(Handle(), 99);
    Ends(EndLimit);
}

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

Child* Children::Start(const std::string& commandLine, HANDLE out, HANDLE error) {
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = out ? STARTF_USESTDHANDLES : 0;
    startup.hStdOutput = out;
    startup.hStdError = error;
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
    const OutputPipe out, error;
    Output output;
    const Child* child = Start(commandLine, out.writing.get(), error.writing.get());
    if (child && child->Ends(RunLimit)) output.status = child->ExitStatus();
    output.out = out.Text();
    output.error = error.Text();
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
