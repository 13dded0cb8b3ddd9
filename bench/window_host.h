// Programs full of windows, for the benchmark of the switch between desktops.
#pragma once

#include <vector>
#include <windows.h>

namespace halyard::bench {

inline constexpr char HostSwitch[] = "--host";
inline constexpr DWORD HostPatience = 60000;  // ms

// What a program that was started by `WindowPrograms` runs: opens `count` windows, from the place number `first` on,
// and tells each time that all of them are shown or all hidden. With `hung` it tells that they are shown and takes no
// message from then on. `name` is that of the semaphore, and begins the name of the shared memory.
int RunHost(const char* name, unsigned first, unsigned count, bool hung) noexcept;

// Ends the programs when it goes.
class WindowPrograms {
public:
    WindowPrograms() noexcept;
    WindowPrograms(const WindowPrograms&) = delete;
    WindowPrograms& operator=(const WindowPrograms&) = delete;
    ~WindowPrograms();

    // Starts programs with so many windows each and waits until these are shown.
    bool Start(unsigned programs, unsigned windowsEach, bool hung) noexcept;

    // Waits until every program that isn't hung has told once that all its windows are shown or all hidden.
    bool AwaitAll() noexcept;

    // All windows of all programs, ascending.
    std::vector<HWND> Windows() const;

    // When a key was first pressed in a window since the last call of `ForgetKeys`, on the clock of `Now`; 0: never.
    double FirstKey() const noexcept;
    void ForgetKeys() noexcept;

private:
    bool Await(unsigned count) noexcept;

    char semaphoreName[64];
    HANDLE semaphore;
    HANDLE mapping;
    double* firstKey;  // shared with the programs
    std::vector<HANDLE> processes;
    unsigned windowCount = 0;
    unsigned answering = 0;
};

}  // namespace halyard::bench
