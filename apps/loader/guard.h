// The guard: a second process of the loader, which waits for the resident one and cleans up after it if that is killed.
#pragma once

#include "common/handles.h"

namespace halyard::loader {

// The resident's side. On the resident's main thread.
class Guard {
public:
    // Starts the guard of this process. Without one the system works all the same.
    void Start() noexcept;

    // The guard's process, to be waited for; null without a guard.
    HANDLE Process() const noexcept { return process.get(); }

    // 0 without a guard.
    DWORD Id() const noexcept { return id; }

    // To be called when the guard's process has ended: starts another, unless guards have ended at once too often.
    void Replace() noexcept;

    // Tells the guard that the server has ended as it should.
    void SayGoodbye() noexcept;

private:
    KernelHandle process;
    KernelHandle goodbye;
    DWORD id = 0;
    DWORD started = 0;  // tick count
    unsigned shortLives = 0;
};

// The guard's own main: returns when the process `resident` has ended or has said good-bye. If it ended without, all
// windows that were hidden are shown, the background is given back, and the loader is started again unless the resident
// lived a few seconds only.
int RunGuard(DWORD resident) noexcept;

// Shows every window that the system has hidden and gives the background back. Needs neither a server nor the library,
// but the instance mutex where that can be had: no server starts meanwhile.
void RestoreWindows() noexcept;

}  // namespace halyard::loader
