// What a program pays in private memory for running beside the product, as a whole: bytes that it has once its window
// is up, and bytes that 10,000 threads with a window each, one after the other, leave behind. One line for each, with
// the system turned on and turned off:
//   CASE ON OFF
// With the name of a case as its switch only that one.
#include "bench/clock.h"
#include "bench/product.h"

#include <cstdio>
#include <cstring>
#include <psapi.h>

namespace halyard::bench {

namespace {

constexpr char ProgramSwitch[] = "program";
constexpr unsigned Threads = 10000;
constexpr double BytesPerUnit = 1024;  // what an exit code counts

double PrivateUnits() noexcept {
    PROCESS_MEMORY_COUNTERS counters = {};
    counters.cb = sizeof(counters);
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters));
    return static_cast<double>(counters.PagefileUsage) / BytesPerUnit;
}

HWND ShowWindowOfOurs() noexcept {
    return CreateWindowA("STATIC", "A window", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 40, 200, 100, nullptr, nullptr,
                         nullptr, nullptr);
}

void HandOutMessages() noexcept {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageA(&message);
}

DWORD WINAPI ShortLived(void*) {
    HWND window = CreateWindowA("STATIC", "", WS_POPUP | WS_CAPTION, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    PostMessageA(window, WM_NULL, 0, 0);
    HandOutMessages();
    DestroyWindow(window);
    return 0;
}

// The answers are exit codes, so that nothing but the platform takes part.
DWORD BytesOfStart() {
    if (!ShowWindowOfOurs()) return 0;
    HandOutMessages();
    return static_cast<DWORD>(PrivateUnits());
}

DWORD BytesOfThreads() {
    ShowWindowOfOurs();
    HandOutMessages();
    ShortLived(nullptr);
    const double before = PrivateUnits();
    for (unsigned count = 0; count < Threads; ++count) {
        HANDLE thread = CreateThread(nullptr, 0, ShortLived, nullptr, 0, nullptr);
        while (MsgWaitForMultipleObjects(1, &thread, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0)
            HandOutMessages();
        CloseHandle(thread);
    }
    const double more = PrivateUnits() - before;
    return more > 0 ? static_cast<DWORD>(more) : 0;
}

bool Measure(const char* what, std::vector<double>& values) {
    DWORD units = 0;
    if (!RunProgram("\"" + Beside("program_bench.exe") + "\" " + ProgramSwitch + " " + what, true, &units))
        return false;
    values.push_back(units * BytesPerUnit);
    return true;
}

bool Compare(const char* what, unsigned runs) {
    std::vector<double> on, off;
    for (unsigned run = 0; run < runs; ++run) {
        if (!CommandProduct("--enable") || !Measure(what, on)) return false;
        if (!CommandProduct("--disable") || !Measure(what, off)) return false;
    }
    std::printf("%s %.0f %.0f\n", what, Median(on), Median(off));
    return true;
}

int RunCases(const char* only) {
    const auto wanted = [only](const char* what) { return !only || std::strcmp(only, what) == 0; };
    const bool good =
        StartProduct() && (!wanted("start") || Compare("start", 5)) && (!wanted("threads") || Compare("threads", 1));
    EndProduct();
    if (!good) std::fputs("program_bench: a program didn't start or end\n", stderr);
    return good ? 0 : 1;
}

}  // namespace

}  // namespace halyard::bench

int main(int count, char** arguments) {
    using namespace halyard::bench;
    if (count < 3) return RunCases(count == 2 ? arguments[1] : nullptr);
    return static_cast<int>(std::strcmp(arguments[2], "start") == 0 ? BytesOfStart() : BytesOfThreads());
}
