#include "desktops/background_notifier.h"

#include "common/handles.h"
#include "common/message_wait.h"
#include "desktops/helper_thread.h"
#include "process/protocol.h"

namespace halyard {

namespace {

constexpr DWORD Patience = 300;  // ms

struct Notifier {
    Lock lock;
    KernelHandle idle{CreateEventA(nullptr, TRUE, TRUE, nullptr)};
    bool running = false;
    bool colourPending = false;
    bool settingsPending = false;
    COLORREF colour = 0;
};

Notifier notifier;

void SetColour(COLORREF colour) noexcept {
    const INT element = COLOR_BACKGROUND;
    SetSysColors(1, &element, &colour);
    const Guard guard(notifier.lock.Section());
    // Another colour may have been asked for meanwhile; that one is still to be set.
    if (notifier.colour == colour) notifier.colourPending = false;
}

void BroadcastSettingChange() noexcept {
    DWORD_PTR answer = 0;
    SendMessageTimeoutA(HWND_BROADCAST, WM_SETTINGCHANGE, 0, 0, SMTO_BLOCK | SMTO_ABORTIFHUNG, BroadcastTimeout,
                        &answer);
}

// Does one thing that is due. False when nothing was: the thread then counts as ended, and the next order starts
// another.
bool DoNext() noexcept {
    EnterCriticalSection(&notifier.lock.Section());
    const bool colourDue = notifier.colourPending;
    const bool settingsDue = !colourDue && notifier.settingsPending;
    const COLORREF colour = notifier.colour;
    if (settingsDue) notifier.settingsPending = false;
    if (!colourDue && !settingsDue) {
        notifier.running = false;
        SetEvent(notifier.idle.get());
    }
    LeaveCriticalSection(&notifier.lock.Section());
    if (colourDue) SetColour(colour);
    if (settingsDue) BroadcastSettingChange();
    return colourDue || settingsDue;
}

void NotifyAll() {
    while (DoNext()) {
    }
}

template <typename Request>
void Order(Request request) noexcept {
    bool start = false;
    {
        const Guard guard(notifier.lock.Section());
        request();
        start = !notifier.running;
        notifier.running = true;
        ResetEvent(notifier.idle.get());
    }
    // Where no thread can be made the work is done here, even though a slow program then holds it up.
    if (start && !RunOnHelperThread(NotifyAll)) NotifyAll();
    // The notices also go to the windows of this thread.
    WaitAnswering(notifier.idle.get(), Patience);
}

}  // namespace

void ChangeBackgroundColour(COLORREF colour) noexcept {
    if (BackgroundColour() == colour) return;
    Order([colour] {
        notifier.colour = colour;
        notifier.colourPending = true;
    });
}

void NotifyBackgroundChange() noexcept {
    Order([] { notifier.settingsPending = true; });
}

COLORREF BackgroundColour() noexcept {
    const Guard guard(notifier.lock.Section());
    return notifier.colourPending ? notifier.colour : GetSysColor(COLOR_BACKGROUND);
}

}  // namespace halyard
