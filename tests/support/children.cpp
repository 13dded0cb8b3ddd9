#include "support/children.h"

#include <tlhelp32.h>

namespace halyard::test {

namespace {

constexpr DWORD RunLimit = 15000;  // ms
constexpr DWORD EndLimit = 5000;   // ms
constexpr DWORD PipeRoom = 0x10000;

// The reading end stays here; a program's output is short enough to wait in the pipe for its end.
class OutputPipe {
public:
    OutputPipe() {
        SECURITY_ATTRIBUTES inherited = {sizeof(inherited), nullptr, TRUE};
        CreatePipe(&reading, &writing, &inherited, PipeRoom);
        SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0);
    }
    OutputPipe(const OutputPipe&) = delete;
    OutputPipe& operator=(const OutputPipe&) = delete;
    ~OutputPipe() {
        CloseHandle(reading);
        CloseHandle(writing);
    }
    HANDLE Writing() const { return writing; }

    // What stands in the pipe, without waiting: a program that was started by the program may hold it open.
    std::string Read() const {
        std::string text;
        DWORD waiting = 0;
        if (!PeekNamedPipe(reading, nullptr, 0, nullptr, &waiting, nullptr) || waiting == 0) return text;
        text.resize(waiting);
        DWORD read = 0;
        ReadFile(reading, text.data(), waiting, &read, nullptr);
        text.resize(read);
        return text;
    }

private:
    HANDLE reading = nullptr;
    HANDLE writing = nullptr;
};

}  // namespace

DWORD Child::ExitStatus() const {
    DWORD status = 0;
    GetExitCodeProcess(process, &status);
    return status;
}

void Child::Kill() const {
    TerminateProcess(process, 99);
    WaitForSingleObject(process, EndLimit);
}

HMODULE Child::Module(const char* name) const {
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, processId);
    MODULEENTRY32 entry = {};
    entry.dwSize = sizeof(entry);
    HMODULE found = nullptr;
    for (BOOL more = Module32First(snapshot, &entry); more && !found; more = Module32Next(snapshot, &entry))
        if (lstrcmpiA(entry.szModule, name) == 0) found = entry.hModule;
    CloseHandle(snapshot);
    return found;
}

Children::Children() : job(CreateJobObjectA(nullptr, nullptr)) {
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof(limits));
}

Children::~Children() {
    EndAll();
    CloseHandle(job);
}

Child* Children::Launch(const std::string& commandLine, STARTUPINFOA& startup, HANDLE user) {
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION made = {};
    std::string line = commandLine;
    const bool redirected = (startup.dwFlags & STARTF_USESTDHANDLES) != 0;
    const BOOL began = user ? CreateProcessAsUserA(user, nullptr, line.data(), nullptr, nullptr, redirected,
                                                   CREATE_SUSPENDED, nullptr, nullptr, &startup, &made)
                            : CreateProcessA(nullptr, line.data(), nullptr, nullptr, redirected, CREATE_SUSPENDED,
                                             nullptr, nullptr, &startup, &made);
    if (!began) return nullptr;
    AssignProcessToJobObject(job, made.hProcess);
    ResumeThread(made.hThread);
    CloseHandle(made.hThread);
    return &started.emplace_back(made);
}

Child* Children::Start(const std::string& commandLine) {
    STARTUPINFOA startup = {};
    return Launch(commandLine, startup);
}

Child* Children::StartAsOrdinaryUser(const std::string& commandLine) {
    alignas(DWORD) BYTE room[SECURITY_MAX_SID_SIZE];
    DWORD size = sizeof(room);
    SID_AND_ATTRIBUTES administrators = {room, 0};
    CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, room, &size);
    HANDLE own = nullptr;
    HANDLE lesser = nullptr;
    OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, &own);
    CreateRestrictedToken(own, 0, 1, &administrators, 0, nullptr, 0, nullptr, &lesser);
    STARTUPINFOA startup = {};
    Child* child = Launch(commandLine, startup, lesser);
    CloseHandle(lesser);
    CloseHandle(own);
    return child;
}

Output Children::Run(const std::string& commandLine) {
    const OutputPipe out;
    const OutputPipe error;
    STARTUPINFOA startup = {};
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = out.Writing();
    startup.hStdError = error.Writing();
    const Child* child = Launch(commandLine, startup);
    Output output;
    output.status = child && child->Ends(RunLimit) ? child->ExitStatus() : static_cast<DWORD>(WAIT_TIMEOUT);
    output.out = out.Read();
    output.error = error.Read();
    return output;
}

void Children::EndAll() {
    TerminateJobObject(job, 98);
    for (const Child& child : started)
        child.Ends(EndLimit);
}

unsigned Children::CountRunning() const {
    JOBOBJECT_BASIC_ACCOUNTING_INFORMATION counts = {};
    QueryInformationJobObject(job, JobObjectBasicAccountingInformation, &counts, sizeof(counts), nullptr);
    return counts.ActiveProcesses;
}

}  // namespace halyard::test
