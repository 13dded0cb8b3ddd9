#include "desktops/order_repair.h"

#include "common/handles.h"
#include "desktops/helper_thread.h"
#include "desktops/keyboard_keeper.h"
#include "process/shared_section.h"
#include "process/trace.h"

namespace halyard {

namespace {

constexpr DWORD StillTime = 120;      // ms without a change until the list counts as still
constexpr DWORD PollPeriod = 40;      // ms
constexpr DWORD Patience = 5000;      // ms to wait for stillness
constexpr UINT AnswerTimeout = 100;   // ms that a program gets to answer
constexpr UINT PlacingTimeout = 300;  // ms that a program gets to place a window
constexpr int Rounds = 3;             // of placing, since placing can itself be answered by changes

struct Job {
    KeyRow wanted;
    KeyRow arrived;  // late windows to be placed; empty: all of them
    WindowKey front = 0;
    unsigned number = 0;
};

struct RepairState {
    Lock lock;
    KeyRow wanted;
    KeyRow arrived;
    KeyRow late;  // left out by the last repair
    WindowKey front = 0;
    unsigned number = 0;
    unsigned keeperTurn = 0;  // at the switch that the order is for
    bool due = false;
    bool running = false;
};

RepairState repair;

HWND WindowOf(WindowKey key) noexcept {
    return HandleFromBits<HWND>(key);
}

bool Answers(HWND window, UINT timeout) noexcept {
    DWORD_PTR answer = 0;
    return SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, timeout, &answer) != 0;
}

bool TakeJob(Job& job) noexcept {
    const Guard guard(repair.lock.Section());
    repair.running = repair.due;
    if (!repair.due) return false;
    job.wanted = CopyOf(repair.wanted);
    job.arrived = CopyOf(repair.arrived);
    job.front = repair.front;
    job.number = repair.number;
    return true;
}

bool IsReplaced(const Job& job) noexcept {
    const Guard guard(repair.lock.Section());
    return job.number != repair.number;
}

void Finish(const Job& job, KeyRow late) noexcept {
    const Guard guard(repair.lock.Section());
    if (job.number != repair.number) return;
    repair.due = false;
    repair.late = std::move(late);
    LowerKeeperSoon(repair.keeperTurn);
}

struct Listing {
    const KeyRow& wanted;
    KeyRow visible;
};

BOOL CALLBACK ListIfVisible(HWND window, LPARAM listing) noexcept {
    auto& list = *reinterpret_cast<Listing*>(listing);
    const WindowKey key = HandleBits(window);
    if (list.wanted.Has(key) && (GetWindowLongA(window, GWL_STYLE) & WS_VISIBLE)) list.visible.Add(key);
    return TRUE;
}

// The visible ones of `wanted` as they stand now.
KeyRow PresentOrder(const KeyRow& wanted) noexcept {
    Listing listing = {wanted, {}};
    EnumWindows(ListIfVisible, reinterpret_cast<LPARAM>(&listing));
    return std::move(listing.visible);
}

bool AreEqual(const KeyRow& one, const KeyRow& other) noexcept {
    if (one.Count() != other.Count()) return false;
    for (unsigned index = 0; index < one.Count(); ++index)
        if (one[index] != other[index]) return false;
    return true;
}

Row<ListedWindow> WithOwners(const KeyRow& keys) noexcept {
    Row<ListedWindow> windows;
    for (const WindowKey key : keys)
        windows.Add({key, HandleBits(GetWindow(WindowOf(key), GW_OWNER))});
    return windows;
}

// The user brings windows to the front while the order is being put right.
void FollowFront(Job& job) noexcept {
    const WindowKey front = HandleBits(GetForegroundWindow());
    if (front == job.front || job.arrived.Count() > 0 || !job.wanted.Has(front)) return;
    job.front = front;
    RaiseGroup(job.wanted, WithOwners(job.wanted), front);
    const Guard guard(repair.lock.Section());
    if (job.number == repair.number) repair.wanted = CopyOf(job.wanted);
}

// False when another job has come.
bool AwaitStillness(Job& job) noexcept {
    const DWORD start = GetTickCount();
    DWORD lastChange = start;
    KeyRow before;
    DWORD asking = 0;
    while (!IsReplaced(job)) {
        // Asking about a thousand windows costs the platform something; leave most of the time to the windows.
        Sleep(PollPeriod + 8 * asking);
        const DWORD asked = GetTickCount();
        FollowFront(job);
        KeyRow present = PresentOrder(job.wanted);
        const DWORD now = GetTickCount();
        if (!AreEqual(present, before)) lastChange = now;
        if (now - lastChange >= StillTime || now - start >= Patience) return true;
        before = std::move(present);
        asking = now - asked;
    }
    return false;
}

// Which threads answer; each is asked once.
class AnsweringThreads {
public:
    bool Has(HWND window) noexcept {
        const DWORD thread = GetWindowThreadProcessId(window, nullptr);
        if (!answering.Has(thread) && !silent.Has(thread))
            (Answers(window, AnswerTimeout) ? answering : silent).Add(thread);
        return answering.Has(thread);
    }
    void Drop(HWND window) noexcept {
        const DWORD thread = GetWindowThreadProcessId(window, nullptr);
        if (answering.Has(thread)) answering.RemoveAt(answering.IndexOf(thread));
        silent.Add(thread);
    }

private:
    Row<DWORD> answering;
    Row<DWORD> silent;
};

bool IsTopmost(WindowKey key) noexcept {
    return (GetWindowLongA(WindowOf(key), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
}

KeyRow Band(const KeyRow& keys, const KeyRow& topmost, bool upper) noexcept {
    KeyRow band;
    for (const WindowKey key : keys)
        if (topmost.Has(key) == upper) band.Add(key);
    return band;
}

void Place(const Placement& placement, AnsweringThreads& threads) noexcept {
    HWND window = WindowOf(placement.window);
    HWND above = placement.above ? WindowOf(placement.above) : HWND_TOP;
    SetWindowPos(window, above, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOOWNERZORDER | SWP_ASYNCWINDOWPOS);
    // The next window may be placed below this one, so it must have its place first.
    if (!Answers(window, PlacingTimeout)) threads.Drop(window);
}

// Whether there was anything to do.
bool PutInOrder(Job& job, AnsweringThreads& threads) noexcept {
    FollowFront(job);
    KeyRow present;
    KeyRow topmost;
    for (const WindowKey key : PresentOrder(job.wanted)) {
        if (!threads.Has(WindowOf(key))) continue;
        present.Add(key);
        if (IsTopmost(key)) topmost.Add(key);
    }
    KeyRow wanted = Intersection(job.wanted, present);
    if (job.arrived.Count() > 0) wanted = OrderWithLate(present, wanted, job.arrived);
    unsigned placed = 0;
    for (const bool upper : {true, false}) {
        for (const Placement& placement : PlacementsFor(Band(present, topmost, upper), Band(wanted, topmost, upper))) {
            if (IsReplaced(job)) return false;
            Place(placement, threads);
            ++placed;
        }
    }
    Trace("PutInOrder", "%u of %u windows placed", placed, wanted.Count());
    return placed > 0;
}

KeyRow LeftOut(const Job& job, AnsweringThreads& threads) noexcept {
    const KeyRow present = PresentOrder(job.wanted);
    KeyRow late;
    for (const WindowKey key : job.wanted)
        if (IsWindow(WindowOf(key)) && (!present.Has(key) || !threads.Has(WindowOf(key)))) late.Add(key);
    return late;
}

void RepairAll() {
    Job job;
    while (TakeJob(job)) {
        if (!AwaitStillness(job)) continue;
        AnsweringThreads threads;
        for (int round = 0; round < Rounds && PutInOrder(job, threads); ++round) {
        }
        Finish(job, LeftOut(job, threads));
    }
}

// `change` sets the job; called with the lock.
template <typename Change>
void Order(Change change) noexcept {
    bool start = false;
    {
        const Guard guard(repair.lock.Section());
        if (!change()) return;
        ++repair.number;
        repair.due = true;
        start = !repair.running;
        repair.running = true;
    }
    if (!start || RunOnHelperThread(RepairAll)) return;
    const Guard guard(repair.lock.Section());
    repair.due = false;
    repair.running = false;
    LowerKeeperSoon(repair.keeperTurn);
}

}  // namespace

void RepairOrder(const KeyRow& wanted, WindowKey front) noexcept {
    Order([&] {
        repair.wanted = CopyOf(wanted);
        repair.arrived.Clear();
        repair.late.Clear();
        repair.front = front;
        repair.keeperTurn = KeeperTurn();
        return true;
    });
}

void RepairLateWindow(WindowKey window) noexcept {
    Order([window] {
        const unsigned index = repair.late.IndexOf(window);
        const bool allAreDue = repair.due && repair.arrived.Count() == 0;
        if (allAreDue || index == repair.late.Count()) return false;
        repair.late.RemoveAt(index);
        if (!repair.due) repair.arrived.Clear();
        repair.arrived.Add(window);
        return true;
    });
}

bool OrderInRepair(KeyRow& order) noexcept {
    const Guard guard(repair.lock.Section());
    if (repair.due) order = CopyOf(repair.wanted);
    return repair.due;
}

void DropRepair() noexcept {
    const Guard guard(repair.lock.Section());
    ++repair.number;
    repair.due = false;
    repair.late.Clear();
}

}  // namespace halyard
