#include "desktops/window_switch.h"

#include "desktops/answer_request.h"
#include "desktops/desktop_name.h"
#include "desktops/hidden_mark.h"
#include "desktops/keyboard_keeper.h"
#include "desktops/order_repair.h"
#include "desktops/window_desktop_map.h"
#include "desktops/window_snapshot.h"
#include "process/server_call.h"
#include "process/shared_section.h"
#include "process/trace.h"

#include <cassert>
#include <new>

namespace halyard {

namespace {

constexpr DWORD FrontTimeout = 200;  // ms that the program of the front window gets to show it

// How a desktop was left.
struct DesktopOrder {
    KeyRow windows;       // from the top down
    WindowKey front = 0;  // 0: none of its windows had the foreground
};

SortedMap<DesktopOrder*> orders;
WindowKey awaitedFront = 0;  // is to get the keyboard as soon as its program has shown it

// Waiting for the front window lets messages in, and these may ask for changes while one is under way.
bool working = false;
bool changedMeanwhile = false;

HWND WindowOf(WindowKey key) noexcept {
    return HandleFromBits<HWND>(key);
}

// Wine gives the foreground to the desktop's own window when X has taken the focus from a program: no key comes then.
WindowKey Foreground() noexcept {
    HWND window = GetForegroundWindow();
    return window == GetDesktopWindow() ? 0 : HandleBits(window);
}

DesktopOrder* OrderOf(DesktopId desktop) noexcept {
    if (DesktopOrder** known = orders.Find(desktop)) return *known;
    auto* order = new (std::nothrow) DesktopOrder;
    if (order && orders.Insert(desktop, order)) return order;
    delete order;
    return nullptr;
}

// The windows that the user sees on a desktop, once all programs have followed.
Row<ListedWindow> WindowsOn(DesktopId desktop, const SeenRow& windows) noexcept {
    Row<ListedWindow> listed;
    for (const SeenWindow& window : windows) {
        const DesktopId own = DesktopOf(windows, window);
        if ((own == desktop || own == AllDesktopsId) && (window.visible || window.marked || window.showAsked))
            listed.Add({window.key, window.owner});
    }
    return listed;
}

void RememberOrder(DesktopId left, const SeenRow& windows) noexcept {
    DesktopOrder* order = OrderOf(left);
    if (!order) return;
    const WindowKey front = awaitedFront && KeeperHasKeyboard() ? awaitedFront : Foreground();
    const Row<ListedWindow> present = WindowsOn(left, windows);
    KeyRow inRepair;
    const bool due = OrderInRepair(inRepair);
    order->windows = WantedOrder(present, inRepair);
    if (due && front != order->front) RaiseGroup(order->windows, present, front);
    order->front = order->windows.Has(front) ? front : 0;
}

// The sheet, or a dialog over it. Bars and the keeper have no caption, and other windows of ours aren't shown.
bool IsOwnDialog(WindowKey key) noexcept {
    constexpr LONG Shown = WS_CAPTION | WS_VISIBLE;
    DWORD process = 0;
    GetWindowThreadProcessId(WindowOf(key), &process);
    return process == GetCurrentProcessId() && (GetWindowLongA(WindowOf(key), GWL_STYLE) & Shown) == Shown;
}

struct Plan {
    SeenRow windows;
    KeyRow order;  // of what will be seen, from the top down
    WindowKey front = 0;
    bool frontStays = false;  // it has the foreground, and is to be seen
};

bool IsHiddenBy(const Plan& plan, WindowKey key) noexcept {
    const SeenWindow* window = FindSeen(plan.windows, key);
    return window && !plan.order.Has(key);
}

// A window that has the foreground keeps it if it belongs to the new desktop, or is the sheet in which the desktop was
// chosen. That is a dialog, which no desktop has.
bool KeepsFront(const Plan& plan, WindowKey key, DesktopId current, bool switched) noexcept {
    if (!switched) return !IsHiddenBy(plan, key);
    if (IsOwnDialog(key)) return true;
    const SeenWindow* window = plan.order.Has(key) ? FindSeen(plan.windows, key) : nullptr;
    return window && DesktopOf(plan.windows, *window) == current;
}

void DecideFront(Plan& plan, DesktopId current, bool switched) noexcept {
    const WindowKey foreground = Foreground();
    const SeenWindow* window = FindSeen(plan.windows, foreground);
    if (KeepsFront(plan, foreground, current, switched)) {
        plan.front = foreground;
        plan.frontStays = !window || !window->marked;
        return;
    }
    DesktopOrder** known = switched ? orders.Find(current) : nullptr;
    plan.front = ChooseFront(plan.windows, plan.order, known ? (*known)->front : 0);
    if (plan.front || !foreground || IsHiddenBy(plan, foreground)) return;
    // Nothing on this desktop can take the front: what has it may keep it, be it a window of no desktop.
    plan.front = foreground;
    plan.frontStays = true;
}

Plan MakePlan(DesktopId left, DesktopId current) noexcept {
    Plan plan;
    plan.windows = SeeWindows();
    const bool switched = left != current;
    if (switched) RememberOrder(left, plan.windows);
    const Row<ListedWindow> seen = WindowsOn(current, plan.windows);
    DesktopOrder** known = switched ? orders.Find(current) : nullptr;
    const KeyRow none;
    plan.order = WantedOrder(seen, known ? (*known)->windows : none);
    DecideFront(plan, current, switched);
    // A window that came along, or that has called, is uppermost.
    if (switched && plan.front == Foreground()) RaiseGroup(plan.order, seen, plan.front);
    return plan;
}

void Hide(const SeenRow& windows, const SeenWindow& window, DesktopId current) noexcept {
    const DesktopId desktop = DesktopOf(windows, window);
    if (DecideChange(window, desktop, current) != WindowChange::Hide) return;
    if (HideWithMark(WindowOf(window.key), desktop)) windowDesktopMap.NoteAsked(window.key, Request::Hide);
}

// From the bottom up: what lies underneath needn't be drawn for a moment.
void HideAllBut(WindowKey front, const SeenRow& windows, DesktopId current) noexcept {
    for (unsigned index = windows.Count(); index > 0; --index)
        if (windows[index - 1].key != front) Hide(windows, windows[index - 1], current);
}

void ShowIfHidden(const SeenRow& windows, WindowKey key) noexcept {
    const SeenWindow* window = FindSeen(windows, key);
    if (!window || !window->marked) return;
    ShowAndUnmark(WindowOf(key));
    windowDesktopMap.NoteAsked(key, Request::Show);
}

// The uppermost that can have the front after that one, whose program is hung. 0: none.
WindowKey NextFront(const Plan& plan, KeyRow& candidates, WindowKey hung) noexcept {
    WindowKey next = hung;
    while (next && IsHung(WindowOf(next))) {
        candidates.RemoveAt(candidates.IndexOf(next));
        next = ChooseFront(plan.windows, candidates, 0);
    }
    return next;
}

// Gives the foreground to the window of the front, which has been shown and asked for an answer. A program that is busy
// gets the keyboard when it has followed; one that is hung is passed over.
void GiveFront(const Plan& plan) noexcept {
    KeyRow candidates = CopyOf(plan.order);
    WindowKey front = plan.front;
    if (!AwaitAnswer(FrontTimeout)) {
        awaitedFront = front;
        front = NextFront(plan, candidates, front);
        if (front == awaitedFront || !front) return;
        awaitedFront = 0;
    }
    SetForegroundWindow(WindowOf(front));
}

DWORD ThreadOf(WindowKey key) noexcept {
    return key ? GetWindowThreadProcessId(WindowOf(key), nullptr) : 0;
}

// Shows the window of the front, then the others, those of the same thread last: keys come to it after all that it was
// asked before. Before its program has shown the window, X has nothing to give the focus to.
void ShowWindows(const Plan& plan) noexcept {
    WindowKey waiting = plan.frontStays ? 0 : plan.front;
    const DWORD frontThread = ThreadOf(plan.front);
    KeyRow ofThread;
    ShowIfHidden(plan.windows, plan.front);
    if (waiting) RequestAnswer(WindowOf(waiting));
    for (const WindowKey key : plan.order) {
        if (key == plan.front) continue;
        if (ThreadOf(key) == frontThread)
            ofThread.Add(key);
        else
            ShowIfHidden(plan.windows, key);
        if (!waiting || !HasAnswered()) continue;
        SetForegroundWindow(WindowOf(waiting));
        waiting = 0;
    }
    if (waiting) GiveFront(plan);
    for (const WindowKey key : ofThread)
        ShowIfHidden(plan.windows, key);
}

void CarryOut(DesktopId left) noexcept {
    const DesktopId current = CurrentDesktopId();
    const bool switched = left != current;
    const Plan plan = MakePlan(left, current);
    // The platform activates another window when the active one is hidden. The others can go while the keeper comes.
    const WindowKey foreground = Foreground();
    if (switched || !plan.frontStays) RaiseKeeper();
    HideAllBut(foreground, plan.windows, current);
    if (!plan.frontStays) TakeKeyboard();
    if (const SeenWindow* active = FindSeen(plan.windows, foreground)) Hide(plan.windows, *active, current);
    awaitedFront = 0;
    ShowWindows(plan);
    Trace("CarryOut", "%u windows seen, front %x", plan.order.Count(), plan.front);
    if (switched)
        RepairOrder(plan.order, plan.front);
    else
        LowerKeeper();
}

void Work(DesktopId left) noexcept {
    assert(OnServerThread());
    // A desktop that is switched to needs the keyboard, even where there are no windows at all.
    if (windowDesktopMap.Count() == 0 && left == CurrentDesktopId()) return;
    changedMeanwhile = true;
    if (working) return;
    working = true;
    while (changedMeanwhile) {
        changedMeanwhile = false;
        CarryOut(left);
        left = CurrentDesktopId();
    }
    working = false;
}

HWND OwnerSharedWith(HWND window) noexcept {
    HWND owner = GetWindow(window, GW_OWNER);
    const bool shared = owner && (!IsWindowEnabled(owner) || windowDesktopMap.DesktopOfWindow(window) == NoDesktop);
    return shared ? owner : nullptr;
}

}  // namespace

void SwitchWindows(DesktopId left) noexcept {
    Work(left);
}

void BringInLine() noexcept {
    Work(CurrentDesktopId());
}

bool RecordGroup(HWND window, DesktopId desktop) noexcept {
    bool recorded = false;
    for (; window; window = OwnerSharedWith(window)) {
        if (windowDesktopMap.DesktopOfWindow(window) == NoDesktop) continue;
        windowDesktopMap.Record(window, desktop);
        recorded = true;
    }
    return recorded;
}

void AssignWindow(HWND window, DesktopId desktop) noexcept {
    if (windowDesktopMap.DesktopOfWindow(window) == NoDesktop) {
        windowDesktopMap.Record(window, desktop);
        return;
    }
    RecordGroup(window, desktop);
    BringInLine();
}

void ForgetWindow(HWND window) noexcept {
    if (!windowDesktopMap.Drop(window) || !IsMarkedHidden(window)) return;
    ShowAndUnmark(window);
    // Windows that it owns have lost their desktop.
    BringInLine();
}

void ReleaseAllWindows() noexcept {
    assert(OnServerThread());
    DropRepair();
    awaitedFront = 0;
    ShowMarkedWindows();
    windowDesktopMap.DropAll();
    while (orders.Count() > 0)
        ForgetOrder(orders.At(0).key);
    DestroyKeeper();
    HideDesktopName();
}

void NoteFollowed(HWND window, bool shown) noexcept {
    const WindowKey key = HandleBits(window);
    windowDesktopMap.NoteSeen(key, shown);
    if (!shown) return;
    RepairLateWindow(key);
    if (key != awaitedFront) return;
    awaitedFront = 0;
    if (KeeperHasKeyboard()) SetForegroundWindow(window);
}

void CheckKeyboard() noexcept {
    HWND front = GetForegroundWindow();
    if (working || awaitedFront || (front && IsWindowVisible(front) && !IsIconic(front))) return;
    Plan plan;
    plan.windows = SeeWindows();
    plan.order = WantedOrder(WindowsOn(CurrentDesktopId(), plan.windows), KeyRow());
    plan.front = ChooseFront(plan.windows, plan.order, 0);
    TakeKeyboard();
    ShowWindows(plan);
    LowerKeeper();
}

void PreferFront(DesktopId desktop, HWND window) noexcept {
    if (DesktopOrder* order = OrderOf(desktop)) order->front = HandleBits(window);
}

void ForgetOrder(DesktopId desktop) noexcept {
    const auto position = orders.PositionOf(desktop);
    if (position == orders.None) return;
    delete orders.At(position).value;
    orders.RemoveAt(position);
}

}  // namespace halyard
