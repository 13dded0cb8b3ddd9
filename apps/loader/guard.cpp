#include "loader/guard.h"

#include "loader/channel.h"
#include "loader/start_self.h"
#include "server/rescue.h"

#include <cstdio>

namespace halyard::loader {

namespace {

constexpr DWORD ShortGuard = 1000;  // ms
constexpr unsigned MostShortGuards = 5;
// A server that dies this soon would be started again for ever.
constexpr DWORD ShortServer = 5000;  // ms that its guard has seen of it

KernelHandle GoodbyeEvent(DWORD resident) noexcept {
    char name[40];
    std::snprintf(name, sizeof(name), "TevralHalyardGoodbye%lX", resident);
    return KernelHandle(CreateEventA(nullptr, TRUE, FALSE, name));
}

// Whether the process ended, and not the good-bye came first. A process that can't be opened has ended.
bool EndsWithoutGoodbye(HANDLE process, HANDLE goodbye) noexcept {
    const HANDLE either[] = {goodbye, process};
    if (process) WaitForMultipleObjects(goodbye ? 2 : 1, goodbye ? either : either + 1, FALSE, INFINITE);
    return !goodbye || WaitForSingleObject(goodbye, 0) != WAIT_OBJECT_0;
}

// The mutex that the resident instance holds, while this object lives.
class ResidentsPlace {
public:
    ResidentsPlace() noexcept : mutex(CreateMutexA(nullptr, FALSE, InstanceMutex)) {
        const DWORD outcome = WaitForSingleObject(mutex.get(), 0);
        taken = outcome == WAIT_OBJECT_0 || outcome == WAIT_ABANDONED;
    }
    ResidentsPlace(const ResidentsPlace&) = delete;
    ResidentsPlace& operator=(const ResidentsPlace&) = delete;
    ~ResidentsPlace() {
        if (taken) ReleaseMutex(mutex.get());
    }
    bool IsTaken() const noexcept { return taken; }

private:
    KernelHandle mutex;
    bool taken = false;
};

}  // namespace

void Guard::Start() noexcept {
    if (!goodbye) goodbye = GoodbyeEvent(GetCurrentProcessId());
    char switches[32];
    std::snprintf(switches, sizeof(switches), " --guard %lu", GetCurrentProcessId());
    process = StartSelf(switches, id);
    started = GetTickCount();
}

void Guard::Replace() noexcept {
    process.Reset();
    id = 0;
    if (GetTickCount() - started < ShortGuard) ++shortLives;
    if (shortLives <= MostShortGuards) Start();
}

void Guard::SayGoodbye() noexcept {
    if (goodbye) SetEvent(goodbye.get());
}

int RunGuard(DWORD resident) noexcept {
    const DWORD start = GetTickCount();
    const KernelHandle goodbye = GoodbyeEvent(resident);
    const KernelHandle process(OpenProcess(SYNCHRONIZE, FALSE, resident));
    if (!EndsWithoutGoodbye(process.get(), goodbye.get())) return 0;
    {
        // A loader that has been started meanwhile does all this as its server starts.
        const ResidentsPlace place;
        if (!place.IsTaken()) return 0;
        RescueSession();
    }
    DWORD id = 0;
    if (GetTickCount() - start >= ShortServer) StartSelf("", id);
    return 0;
}

void RestoreWindows() noexcept {
    const ResidentsPlace place;
    RescueSession();
}

}  // namespace halyard::loader
