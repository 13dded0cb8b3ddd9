// A modelling program: keeps a size of the screen at a fixed address of its own memory. It lies in the one array, since
// the linker is told where the image goes.
//   screen_holder WIDTH HEIGHT PROTECTION
// Stores the size, gives its page the protection (as the platform numbers them), has the patches applied and removed,
// and ends with the size then: the width in the high word, the height in the low one; -1 if the address isn't in the
// array.
#include "behaviours/application_patches.h"
#include "process/profile.h"

#include <cstdlib>

namespace {

constexpr ULONG_PTR Width = 0x59E5A0;
constexpr ULONG_PTR Height = 0x59E5A4;

volatile char room[2 << 20];

volatile int& At(ULONG_PTR address) {
    return *reinterpret_cast<volatile int*>(address);
}

void Protect(DWORD protection) {
    DWORD old = 0;
    VirtualProtect(reinterpret_cast<void*>(Width), Height + sizeof(int) - Width, protection, &old);
}

}  // namespace

int main(int count, char** arguments) {
    const auto begin = reinterpret_cast<ULONG_PTR>(room);
    if (count != 4 || Width < begin || Height >= begin + sizeof(room)) return -1;
    At(Width) = std::atoi(arguments[1]);
    At(Height) = std::atoi(arguments[2]);
    Protect(static_cast<DWORD>(std::atoi(arguments[3])));
    halyard::profile.program.modeler = true;
    halyard::ApplyApplicationPatches();
    halyard::RemoveApplicationPatches();
    Protect(PAGE_READWRITE);
    return At(Width) << 16 | At(Height);
}
