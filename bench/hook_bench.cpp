// What a message costs in our hook procedures, in nanoseconds more than an empty one called the same way. One line for
// each case: its name, the difference, and the cost of the empty one.
#include "bench/clock.h"
#include "hook/hook_procs.h"
#include "hook/thread_table.h"
#include "process/profile.h"
#include "process/shared_section.h"

#include <cstdio>
#include <new>

namespace {

LRESULT WINAPI NoNextHook(HHOOK, int, WPARAM, LPARAM) {
    return 0;
}

}  // namespace

// The import slot of CallNextHookEx, filled ahead of the platform's: its own call takes thousands of nanoseconds, in
// whose noise ours would drown.
#ifdef _WIN64
extern "C" const decltype(&CallNextHookEx) nextHookSlot asm("__imp_CallNextHookEx");
#else
extern "C" const decltype(&CallNextHookEx) nextHookSlot asm("__imp__CallNextHookEx@16");
#endif
const decltype(&CallNextHookEx) nextHookSlot = NoNextHook;

namespace halyard::bench {

namespace {

constexpr unsigned Rounds = 41;
constexpr unsigned CallsPerRound = 200000;
constexpr unsigned SlowCallsPerRound = 2000;  // where the platform is asked each time
constexpr unsigned WindowCount = 20;

// The compiler must take every call for one that it can't see through.
template <typename Function>
Function Opaque(Function function) noexcept {
    Function volatile hidden = function;
    return hidden;
}

void ObserveNothing(const CWPRETSTRUCT& event) noexcept {
    asm volatile("" : : "r"(&event) : "memory");
}

bool FilterNothing(MSG& message) noexcept {
    asm volatile("" : : "r"(&message) : "memory");
    return false;
}

LRESULT CALLBACK EmptyHookProc(int code, WPARAM wParam, LPARAM lParam) {
    return CallNextHookEx(CallWndProcRetHook(), code, wParam, lParam);
}

template <typename Call, typename Event>
double NanosecondsPerCall(Call call, std::vector<Event>& events, unsigned calls) noexcept {
    const double start = Now();
    for (unsigned index = 0, next = 0; index < calls; ++index) {
        call(events[next]);
        if (++next == events.size()) next = 0;
    }
    return (Now() - start) / calls;
}

// Both are measured by turns, so that what else the machine does meets both.
template <typename Call, typename Event>
void Compare(const char* name, Call ours, Call empty, std::vector<Event> events, unsigned calls = CallsPerRound) {
    std::vector<double> differences;
    std::vector<double> empties;
    NanosecondsPerCall(ours, events, calls);
    for (unsigned round = 0; round < Rounds; ++round) {
        empties.push_back(NanosecondsPerCall(empty, events, calls));
        differences.push_back(NanosecondsPerCall(ours, events, calls) - empties.back());
    }
    std::printf("%s %.2f %.2f\n", name, Median(differences), Median(empties));
}

// Common messages that are none of the system's business.
constexpr UINT UnwantedMessages[] = {WM_GETTEXT,      WM_ERASEBKGND, WM_SETCURSOR, WM_GETICON,
                                     WM_CTLCOLOREDIT, WM_USER + 7,   WM_NOTIFY,    0xC0DE};

HWND MakeWindow() noexcept {
    return CreateWindowA("STATIC", "", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr, nullptr, nullptr);
}

template <typename Call>
auto AsHook(Call call) noexcept {
    return [call](const CWPRETSTRUCT& event) { call(0, 0, reinterpret_cast<LPARAM>(&event)); };
}

int Run() {
    threadTable = new (std::nothrow) ThreadTable;
    if (!threadTable) return 1;
    std::vector<CWPRETSTRUCT> unwanted;
    std::vector<CWPRETSTRUCT> hitTests;
    for (unsigned index = 0; index < WindowCount; ++index)
        hitTests.push_back({HTCAPTION, 0, 0, WM_NCHITTEST, MakeWindow()});
    for (UINT message : UnwantedMessages)
        unwanted.push_back({0, 0, 0, message, hitTests[0].hwnd});
    std::vector<MSG> taken;
    for (UINT message : {WM_MOUSEMOVE, WM_PAINT, WM_TIMER, WM_KEYDOWN})
        taken.push_back({hitTests[0].hwnd, static_cast<UINT>(message), 0, 0, 0, {}});

    const auto observe = Opaque(&ObserveSentMessage);
    const auto observeNothing = Opaque(&ObserveNothing);
    const std::vector<CWPRETSTRUCT> oneWindow(1, hitTests[0]);
    Compare("sent_unwanted", observe, observeNothing, unwanted);
    Compare("hit_test", observe, observeNothing, oneWindow);
    Compare("hit_test_in_turn", observe, observeNothing, hitTests);
    // The thread that set the hooks may be shown messages of other programs' windows.
    profile.isServerProcess = true;
    Compare("hit_test_of_others", observe, observeNothing,
            std::vector<CWPRETSTRUCT>(1, {HTCAPTION, 0, 0, WM_NCHITTEST, GetDesktopWindow()}), SlowCallsPerRound);
    profile.isServerProcess = false;
    Compare("taken_unwanted", Opaque(&FilterTakenMessage), Opaque(&FilterNothing), taken);

    // Nobody looks at the handle.
    SetCallWndProcRetHook(reinterpret_cast<HHOOK>(1));
    using Hook = decltype(AsHook(Opaque(&CallWndProcRetHookProc)));
    const Hook ours = AsHook(Opaque(&CallWndProcRetHookProc));
    const Hook empty = AsHook(Opaque(&EmptyHookProc));
    Compare("procedure_unwanted", ours, empty, unwanted);
    Compare("procedure_hit_test", ours, empty, oneWindow);
    return 0;
}

}  // namespace

}  // namespace halyard::bench

int main() {
    return halyard::bench::Run();
}
