// Programs full of windows, for the benchmark of the switch between desktops.
#pragma once

#include <vector>
#include <windows.h>

namespace halyard::bench {

inline constexpr char HostSwitch[] = "--host";
inline constexpr DWORD HostPatience = 60000;  // ms

// What a program that was started by `WindowPrograms` runs: opens `count` windows, from the place number
// `first` on, and tells each time that all of them
// are shown or all hidden. With `hung` it tells that they are shown and takes no message from then on.
int RunHost(const char* semaphore, unsigned first, unsigned count, bool hung) noexcept;

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

private:
    bool Await(unsigned count) noexcept;

    char semaphoreName[64];
    HANDLE semaphore;
    std::vector<HANDLE> processes;
    unsigned windowCount = 0;
    unsigned answering = 0;
};

}  // namespace halyard::bench
