// How long it takes to bring the windows of ten programs to another desktop and back, against a bare loop of
// ShowWindowAsync over the same windows. Lines of
//   CASE WINDOWS HUNG DONE OWN
// with the number of windows, how many more belong to a program that hangs, and the microseconds for there and back:
// until every window has followed, and until the calls had returned. The cases are bare, the loop; sweep, what decides
// and moves the windows; whole, a switch with all that it does, the background included.
#include "bench/clock.h"
#include "bench/window_host.h"
#include "desktops/desktop_list.h"
#include "desktops/desktop_switch.h"
#include "desktops/window_switch.h"
#include "process/com.h"
#include "process/profile.h"
#include "process/shared_section.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace halyard::bench {

namespace {

constexpr unsigned Programs = 10;
constexpr unsigned HungWindows = 5;
constexpr DesktopId OtherDesktop = 1;

struct Timing {
    double own;   // until the calls had returned
    double done;  // until every window had followed
};

using Step = void (*)(const std::vector<HWND>& windows, bool away);

void Sweep(const std::vector<HWND>&, bool away) {
    SetCurrentDesktopId(away ? OtherDesktop : DefaultDesktopId);
    SwitchWindows(away ? DefaultDesktopId : OtherDesktop);
}

void BareLoop(const std::vector<HWND>& windows, bool away) {
    for (HWND window : windows)
        ShowWindowAsync(window, away ? SW_HIDE : SW_SHOWNORMAL);
}

void WholeSwitch(const std::vector<HWND>&, bool away) {
    Activate(away ? OtherDesktop : DefaultDesktopId);
}

// There and back.
bool Measure(Step step, WindowPrograms& programs, const std::vector<HWND>& windows, Timing& timing) {
    timing = {};
    for (bool away : {true, false}) {
        const double start = Now();
        step(windows, away);
        timing.own += Now() - start;
        if (!programs.AwaitAll()) return false;
        timing.done += Now() - start;
    }
    return true;
}

struct Series {
    std::vector<double> own;
    std::vector<double> done;
    bool Add(Step step, WindowPrograms& programs, const std::vector<HWND>& windows) {
        Timing timing;
        if (!Measure(step, programs, windows, timing)) return false;
        own.push_back(timing.own / 1000);
        done.push_back(timing.done / 1000);
        return true;
    }
    void Print(const char* name, unsigned windowCount, bool withHung) const {
        std::printf("%s %u %u %.0f %.0f\n", name, windowCount, withHung ? HungWindows : 0, Median(done), Median(own));
        std::fflush(stdout);
    }
};

bool Run(unsigned windowCount, bool withHung, unsigned rounds) {
    WindowPrograms programs;
    if (!programs.Start(Programs, windowCount / Programs, false)) return false;
    if (withHung && !programs.Start(1, HungWindows, true)) return false;
    const std::vector<HWND> windows = programs.Windows();
    if (windows.size() != windowCount + (withHung ? HungWindows : 0)) return false;
    for (HWND window : windows)
        AssignWindow(window, DefaultDesktopId);

    Series bare;
    Series sweep;
    Series whole;
    for (unsigned round = 0; round < rounds; ++round) {
        if (!bare.Add(BareLoop, programs, windows) || !sweep.Add(Sweep, programs, windows)) return false;
        // The platform's change of the colour waits for every program, for ever if need be.
        if (!withHung && !whole.Add(WholeSwitch, programs, windows)) return false;
    }
    for (HWND window : windows)
        ForgetWindow(window);
    bare.Print("bare", windowCount, withHung);
    sweep.Print("sweep", windowCount, withHung);
    if (!withHung) whole.Print("whole", windowCount, withHung);
    return true;
}

int RunAll() {
    profile.isServerProcess = true;
    BindCom();
    desktopList.Add("Default", DefaultDesktopId);
    desktopList.Add("Other", OtherDesktop);
    if (Run(10, false, 21) && Run(100, false, 11) && Run(100, true, 11) && Run(1000, false, 3)) return 0;
    std::fputs("switch_bench: the windows didn't follow\n", stderr);
    return 1;
}

}  // namespace

}  // namespace halyard::bench

int main(int count, char** arguments) {
    using namespace halyard::bench;
    const auto number = [&](int index) { return static_cast<unsigned>(std::atoi(arguments[index])); };
    if (count == 6 && std::strcmp(arguments[1], HostSwitch) == 0)
        return RunHost(arguments[2], number(3), number(4), number(5) != 0);
    return RunAll();
}
