// The processes that a test starts, and only those.
#pragma once

#include <list>
#include <string>
#include <windows.h>

namespace halyard::test {

class Child {
public:
    explicit Child(const PROCESS_INFORMATION& started) : process(started.hProcess), processId(started.dwProcessId) {}
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child() { CloseHandle(process); }

    HANDLE Handle() const { return process; }
    DWORD Id() const { return processId; }
    // Whether it ends within that time, in ms.
    bool Ends(DWORD limit) const { return WaitForSingleObject(process, limit) == WAIT_OBJECT_0; }
    DWORD ExitStatus() const;
    void Kill() const;
    // Base of the module of that file name in the process; null where it isn't mapped.
    HMODULE Module(const char* name) const;

private:
    HANDLE process;
    DWORD processId;
};

struct Output {
    DWORD status = 0;  // WAIT_TIMEOUT where the program didn't end
    std::string out;
    std::string error;
};

// Ends all of them, and whatever they started, with itself.
class Children {
public:
    Children();
    Children(const Children&) = delete;
    Children& operator=(const Children&) = delete;
    ~Children();

    // Null where it can't be started. The record lives as long as this object.
    Child* Start(const std::string& commandLine);
    // The program runs without the rights of an administrator.
    Child* StartAsOrdinaryUser(const std::string& commandLine);
    // Runs the program to its end, at most 15 s.
    Output Run(const std::string& commandLine);
    void EndAll();
    // How many of them run, with those that they started.
    unsigned CountRunning() const;

private:
    Child* Launch(const std::string& commandLine, STARTUPINFOA& startup, HANDLE user = nullptr);

    HANDLE job;
    std::list<Child> started;
};

}  // namespace halyard::test
