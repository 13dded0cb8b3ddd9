// A fault several calls deep, compiled as the library is: the report's stack must name each caller.
#include "crash/fault_protocol.h"

namespace halyard::test {

namespace {

// The read is volatile, so that the compiler leaves it here.
__attribute__((noinline)) int Innermost(const volatile int* place) {
    return *place + 1;
}
__attribute__((noinline)) int Inner(const int* place) {
    return Innermost(place) * 3;
}
__attribute__((noinline)) int Outer(const int* place) {
    return Inner(place) - 7;
}

}  // namespace

int FaultDeep(const int* place) {
    return Outer(place) ^ 5;
}

}  // namespace halyard::test
