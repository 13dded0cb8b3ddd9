// What the sample that faults, the library's test entry and the test agree on.
#pragma once

#include <windows.h>

namespace halyard::test {

// Posted to the sample's window; wParam: a FaultKind.
inline constexpr UINT FaultMessage = WM_APP + 1;
inline constexpr char FaultTitle[] = "Faulting sample";
inline constexpr char FaultEntry[] = "FaultForTest";

// What faults is the library, but for the last. SymbolsHang is a Deep one while the debug-help library never answers.
// clang-format off
enum FaultKind : int {
    Read, Execute, Divide, Deep, StackOverflow, Abort, TwoThreads, LoaderLocked, SymbolsHang, ProgramsOwn
};
// clang-format on

// Faults with a place that can't be read.
int FaultDeep(const int* place);

// The faults as the sample saw them ahead of every filter, in shared memory that the test makes.
inline constexpr char SeenName[] = "HalyardFaultSeen";
struct FaultSeen {
    EXCEPTION_RECORD record;
    alignas(16) CONTEXT context;
    HMODULE library;
    LONG faults;
    LONG ownFilterCalls;  // of the program's own filter
    DWORD ownFilterCode;
};

inline constexpr DWORD OwnFilterStatus = 77;  // the exit status that the program's own filter gives

}  // namespace halyard::test
