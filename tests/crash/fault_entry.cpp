// An entry that only the tests' build of the library has: it faults inside the library's own image.
#include "crash/fault_protocol.h"

namespace halyard::test {

namespace {

struct Probe {
    int first;
    short second;
    char third;
};

volatile int globalProbe = 0x1234567;
// In a page that holds data.
unsigned char instructions[16] = {0xC3};

volatile bool goesOn = true;

int Overflow(int depth) {
    volatile char room[512];
    room[0] = static_cast<char>(depth);
    return (goesOn ? Overflow(depth + 1) : 0) + room[0];
}

int FaultWithProbe(int kind) {
    volatile Probe probe = {0x11223344, 0x5566, 0x77};
    const char* volatile text = "a text of more than thirty-one characters";
    int* volatile nowhere = reinterpret_cast<int*>(0x10);
    switch (kind) {
    case Execute: return reinterpret_cast<int (*)()>(instructions)();
    case StackOverflow: return Overflow(0);
    }
    return FaultDeep(nowhere) + probe.first + globalProbe + *text;
}

}  // namespace

}  // namespace halyard::test

extern "C" int FaultForTest(int kind) {
    return halyard::test::FaultWithProbe(kind);
}
