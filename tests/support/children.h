// The processes that a test starts, and only those.
#pragma once

#include "common/handles.h"

#include <list>
#include <string>

namespace halyard::test {

constexpr DWORD EndLimit = 5000;  // ms

class Child {
public:
    Child(HANDLE startedProcess, DWORD startedId) : process(startedProcess), id(startedId) {}

    HANDLE Handle() const { return process.get(); }
    DWORD Id() const { return id; }
    // Whether it ends within that time, in ms.
    bool Ends(DWORD limit) const { return WaitForSingleObject(process.get(), limit) == WAIT_OBJECT_0; }
    DWORD ExitStatus() const {
        DWORD status = 0;
        GetExitCodeProcess(Handle(), &status);
        return status;
    }
    void Kill() const {
        TerminateProcess(Handle(), 99);
        Ends(EndLimit);
    }
    // Base of the module of that file name in the process; null where it isn't mapped.
    HMODULE Module(const char* name) const;

private:
    const KernelHandle process;
    const DWORD id;
};

struct Output {
    DWORD status = WAIT_TIMEOUT;  // this where the program didn't end
    std::string out;              // with what it wrote as errors
};

// Ends all of them, and whatever they started, with itself.
class Children {
public:
    Children();
    ~Children() { EndAll(); }

    // Null where it can't be started. The record lives as long as this object.
    Child* Start(const std::string& commandLine, HANDLE out = nullptr);
    // Runs the program to its end, at most 15 s.
    Output Run(const std::string& commandLine);
    void EndAll();
    // How many of them run, with those that they started.
    unsigned CountRunning() const;

private:
    const KernelHandle job;
    std::list<Child> started;
};

}  // namespace halyard::test
