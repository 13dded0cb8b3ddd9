// What the sample that faults, the library's test entry and the test agree on.
#pragma once

#include <windows.h>

namespace halyard::test {

// Posted to the sample's window; wParam: a FaultKind.
inline constexpr UINT FaultMessage = WM_APP + 1;
inline constexpr char FaultTitle[] = "Faulting sample";

// What faults is the library, but for the last. The two before it are deep ones too: the debug-help library never
// answers, or the thread holds the loader's lock.
enum FaultKind : int { Deep, Execute, StackOverflow, SymbolsHang, LoaderLocked, ProgramsOwn };

// Faults with a place that can't be read, while a register (EBX, RBX) holds that number.
int FaultDeep(const int* place);
inline constexpr int HeldByRegister = 0x1BADF00D;

inline constexpr DWORD OwnFilterStatus = 77;  // the exit status that the program's own filter gives

}  // namespace halyard::test
