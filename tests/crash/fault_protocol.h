// What the sample that faults, the library's test entry and the test agree on.
#pragma once

#include <windows.h>

namespace halyard::test {

// Posted to the sample's window; wParam: a FaultKind.
inline constexpr UINT FaultMessage = WM_APP + 1;
inline constexpr char FaultTitle[] = "Faulting sample";
inline constexpr char FaultEntry[] = "FaultForTest";

// The library's own, but for the last.
enum FaultKind : int { Read, Write, Execute, Divide, StackOverflow, Abort, TwoThreads, LoaderLocked, ProgramsOwn };

// The faults as the sample saw them ahead of every filter, in shared memory that the test makes.
inline constexpr char SeenName[] = "HalyardFaultSeen";
struct FaultSeen {
    EXCEPTION_RECORD record;
    alignas(16) CONTEXT context;
    LONG faults;
    LONG ownFilterCalls;  // of the program's own filter
    DWORD ownFilterCode;
};

inline constexpr DWORD OwnFilterStatus = 77;  // the exit status that the program's own filter gives

}  // namespace halyard::test
