// A fault several calls deep, compiled as the library is: the report's stack must name each caller.
#include "crash/fault_protocol.h"

namespace halyard::test {

namespace {

__attribute__((noinline)) int Innermost(const int* place) {
    int value;
    asm volatile("movl %2, %%ebx\n\tmovl (%1), %0" : "=r"(value) : "r"(place), "i"(HeldByRegister) : "ebx");
    return value + 1;
}

}  // namespace

int FaultDeep(const int* place) {
    return Innermost(place) * 3;
}

}  // namespace halyard::test
