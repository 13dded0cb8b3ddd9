// What it costs a program to have the library of the given path mapped: the time of that in microseconds, and the
// private memory that it takes in bytes. One line with both. One program can tell it once only: whatever the library
// leaves behind would make the next time cheaper.
#include "bench/clock.h"

#include <cstdio>
#include <psapi.h>

namespace {

SIZE_T PrivateBytes() noexcept {
    PROCESS_MEMORY_COUNTERS counters = {};
    counters.cb = sizeof(counters);
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters));
    return counters.PagefileUsage;
}

// A program that hooks reach has windows, and what the platform sets up for the first of them.
bool BecomeGuiProgram() noexcept {
    HWND window = CreateWindowA("STATIC", "", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr, nullptr, nullptr);
    return window && ShowWindow(window, SW_SHOWNOACTIVATE) == FALSE;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2 || !BecomeGuiProgram()) return 2;
    PrivateBytes();
    const SIZE_T bytesBefore = PrivateBytes();
    const double start = halyard::bench::Now();
    const HMODULE module = LoadLibraryA(arguments[1]);
    const double mapped = halyard::bench::Now();
    if (!module) {
        std::fprintf(stderr, "map_bench: %s can't be mapped, error %lu\n", arguments[1], GetLastError());
        return 1;
    }
    const auto bytes = static_cast<long long>(PrivateBytes()) - static_cast<long long>(bytesBefore);
    std::printf("%.0f %lld\n", (mapped - start) / 1000, bytes);
    return 0;
}
