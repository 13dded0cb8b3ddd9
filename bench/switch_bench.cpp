// How long the windows of ten programs take to follow a switch to another desktop, and the switch back, against a bare
// loop of ShowWindowAsync over the same windows without the product, and against the same loop with two hooks of an
// empty library and a window that gets the front. The product's through the loader, with the hooks in. Lines of
//   CASE WINDOWS HUNG AWAY BACK
// with the number of windows, how many more belong to a program that hangs, and the microseconds until the last window
// has followed; the cases are bare, hooked and switch, measured by turns. With the argument "typed", while somebody
// presses keys all the time, lines of
//   typed WINDOWS HUNG MICROSECONDS
// until the first key has reached a window of the desktop that was switched to.
#include "bench/clock.h"
#include "bench/product.h"
#include "bench/window_host.h"
#include "common/entry.h"
#include "process/protocol.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace halyard::bench {

namespace {

constexpr unsigned Programs = 10;
constexpr unsigned HungWindows = 5;
constexpr DWORD SettleTime = 700;  // ms after which the order has been put right

HWND Server() {
    return FindWindowA(ServerWindowClass, nullptr);
}

void Settle() {
    Sleep(SettleTime);
    SendMessageA(Server(), WM_NULL, 0, 0);
}

void Switch(DesktopId desktop) {
    PostMessageA(Server(), HM_SWITCH_DESKTOP, 0, static_cast<LPARAM>(desktop));
}

using Step = void (*)(const std::vector<HWND>& windows, bool away);

void SwitchDesktop(const std::vector<HWND>&, bool away) {
    Switch(away ? 1 : DefaultDesktopId);
}

void BareLoop(const std::vector<HWND>& windows, bool away) {
    for (HWND window : windows)
        ShowWindowAsync(window, away ? SW_HIDE : SW_SHOWNA);
}

// What any system pays that hooks the programs and gives the front back.
void HookedLoop(const std::vector<HWND>& windows, bool away) {
    BareLoop(windows, away);
    if (!away) SetForegroundWindow(windows.front());
}

struct Series {
    std::vector<double> away, back;

    bool Add(Step step, WindowPrograms& programs, const std::vector<HWND>& windows) {
        for (const bool leaves : {true, false}) {
            const double start = Now();
            step(windows, leaves);
            if (!programs.AwaitAll()) return false;
            (leaves ? away : back).push_back((Now() - start) / 1000);
            Settle();
        }
        return true;
    }
    void Print(const char* name, unsigned windowCount, bool withHung) const {
        std::printf("%s %u %u %.0f %.0f\n", name, windowCount, withHung ? HungWindows : 0, Median(away), Median(back));
        std::fflush(stdout);
    }
};

// The programs of one measurement, with all their windows on the default desktop.
class Field {
public:
    bool Open(unsigned windowCount, bool withHung) {
        if (!programs.Start(Programs, windowCount / Programs, false)) return false;
        if (withHung && !programs.Start(1, HungWindows, true)) return false;
        windows = programs.Windows();
        Settle();
        return windows.size() == windowCount + (withHung ? HungWindows : 0);
    }
    // Windows without a caption aren't the product's business unless they are reported.
    void Report() const {
        for (HWND window : windows)
            PostMessageA(Server(), HM_WINDOW_ATTACH, reinterpret_cast<WPARAM>(window), DefaultDesktopId);
        Settle();
    }

    WindowPrograms programs;
    std::vector<HWND> windows;
};

// Hooks of the two kinds that the product sets, in all programs, which do nothing.
class EmptyHooks {
public:
    EmptyHooks() {
        const HMODULE library = LoadLibraryA(Beside("empty_library.dll").c_str());
        for (const char* name : {"EmptyHook", "EmptyHook@12"})
            if (const auto procedure = EntryOf<HOOKPROC>(library, name))
                for (const int kind : {WH_GETMESSAGE, WH_CALLWNDPROCRET})
                    hooks.push_back(SetWindowsHookExA(kind, procedure, library, 0));
    }
    EmptyHooks(const EmptyHooks&) = delete;
    EmptyHooks& operator=(const EmptyHooks&) = delete;
    ~EmptyHooks() {
        for (HHOOK hook : hooks)
            UnhookWindowsHookEx(hook);
    }
    bool AreIn() const { return hooks.size() == 2 && hooks[0] && hooks[1]; }

private:
    std::vector<HHOOK> hooks;
};

bool Measure(unsigned windowCount, bool withHung, unsigned rounds) {
    Field field;
    if (!field.Open(windowCount, withHung)) return false;
    Series bare;
    Series hooked;
    Series switched;
    for (unsigned round = 0; round < rounds; ++round) {
        if (!CommandProduct("--disable") || !bare.Add(BareLoop, field.programs, field.windows)) return false;
        {
            const EmptyHooks hooks;
            if (!hooks.AreIn() || !hooked.Add(HookedLoop, field.programs, field.windows)) return false;
        }
        if (!CommandProduct("--enable")) return false;
        field.Report();
        if (!switched.Add(SwitchDesktop, field.programs, field.windows)) return false;
    }
    bare.Print("bare", windowCount, withHung);
    hooked.Print("hooked", windowCount, withHung);
    switched.Print("switch", windowCount, withHung);
    return true;
}

bool MeasureTyped(unsigned windowCount, bool withHung, unsigned rounds) {
    Field field;
    if (!field.Open(windowCount, withHung)) return false;
    field.Report();
    SetForegroundWindow(field.windows.front());
    Settle();
    std::vector<double> times;
    for (unsigned round = 0; round < rounds; ++round) {
        Switch(1);
        if (!field.programs.AwaitAll()) return false;
        Settle();
        field.programs.ForgetKeys();
        const double start = Now();
        Switch(DefaultDesktopId);
        if (!field.programs.AwaitAll()) return false;
        Settle();
        times.push_back((field.programs.FirstKey() - start) / 1000);
    }
    std::printf("typed %u %u %.0f\n", windowCount, withHung ? HungWindows : 0, Median(times));
    std::fflush(stdout);
    return true;
}

int RunAll(bool typed) {
    bool good = StartProduct();
    if (typed)
        good = good && MeasureTyped(10, false, 9) && MeasureTyped(100, false, 7) && MeasureTyped(100, true, 7);
    else
        good =
            good && Measure(10, false, 9) && Measure(100, false, 7) && Measure(100, true, 5) && Measure(1000, false, 3);
    EndProduct();
    if (!good) std::fputs("switch_bench: the windows didn't follow\n", stderr);
    return good ? 0 : 1;
}

}  // namespace

}  // namespace halyard::bench

int main(int count, char** arguments) {
    using namespace halyard::bench;
    const auto number = [&](int index) { return static_cast<unsigned>(std::atoi(arguments[index])); };
    if (count == 6 && std::strcmp(arguments[1], HostSwitch) == 0)
        return RunHost(arguments[2], number(3), number(4), number(5) != 0);
    return RunAll(count == 2 && std::strcmp(arguments[1], "typed") == 0);
}
