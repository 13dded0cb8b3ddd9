#include "desktops/announcer.h"

#include "common/handles.h"
#include "process/profile.h"
#include "process/protocol.h"

namespace halyard {

namespace {

constexpr DWORD Patience = 300;  // ms

struct Announcer {
    Lock lock;
    KernelHandle idle{CreateEventA(nullptr, TRUE, TRUE, nullptr)};
    bool running = false;
    bool colourPending = false;
    bool settingsPending = false;
    COLORREF colour = 0;
};

Announcer announcer;

void SetColour(COLORREF colour) noexcept {
    const INT element = COLOR_BACKGROUND;
    SetSysColors(1, &element, &colour);
    const Guard guard(announcer.lock.Section());
    // Unless another one was asked for meanwhile.
    if (announcer.colour == colour) announcer.colourPending = false;
}

void BroadcastSettingChange() noexcept {
    DWORD_PTR answer = 0;
    SendMessageTimeoutA(HWND_BROADCAST, WM_SETTINGCHANGE, 0, 0, SMTO_BLOCK | SMTO_ABORTIFHUNG, BroadcastTimeout,
                        &answer);
}

// One thing that is due; false when there is none, and the thread has thereby ended its work.
bool DoNext() noexcept {
    EnterCriticalSection(&announcer.lock.Section());
    const bool colourDue = announcer.colourPending;
    const bool settingsDue = !colourDue && announcer.settingsPending;
    const COLORREF colour = announcer.colour;
    if (settingsDue) announcer.settingsPending = false;
    if (!colourDue && !settingsDue) {
        announcer.running = false;
        SetEvent(announcer.idle.get());
    }
    LeaveCriticalSection(&announcer.lock.Section());
    if (colourDue) SetColour(colour);
    if (settingsDue) BroadcastSettingChange();
    return colourDue || settingsDue;
}

// Holds the library: it must not go away under the thread's feet.
DWORD WINAPI AnnouncerThread(void* library) {
    while (DoNext()) {
    }
    if (library) FreeLibraryAndExitThread(static_cast<HMODULE>(library), 0);
    return 0;
}

void Start() noexcept {
    const HMODULE library = LoadLibraryA(ModulePath(profile.moduleInstance).text);
    DWORD id = 0;
    const KernelHandle thread(CreateThread(nullptr, 0, AnnouncerThread, library, 0, &id));
    if (thread) return;
    // Without a thread it is done here, slow programs or not.
    while (DoNext()) {
    }
    if (library) FreeLibrary(library);
}

// Sent messages are let in: what is being announced comes to the windows of this thread as well.
void WaitUntilIdle() noexcept {
    const DWORD start = GetTickCount();
    HANDLE idle = announcer.idle.get();
    for (DWORD waited = 0; waited < Patience; waited = GetTickCount() - start) {
        if (MsgWaitForMultipleObjects(1, &idle, FALSE, Patience - waited, QS_SENDMESSAGE) == WAIT_OBJECT_0) return;
        MSG message;
        PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE | (QS_SENDMESSAGE << 16));
    }
}

template <typename Request>
void Announce(Request request) noexcept {
    bool start = false;
    {
        const Guard guard(announcer.lock.Section());
        request();
        start = !announcer.running;
        announcer.running = true;
        ResetEvent(announcer.idle.get());
    }
    if (start) Start();
    WaitUntilIdle();
}

}  // namespace

void AnnounceColour(COLORREF colour) noexcept {
    if (BackgroundColour() == colour) return;
    Announce([colour] {
        announcer.colour = colour;
        announcer.colourPending = true;
    });
}

void AnnounceSettings() noexcept {
    Announce([] { announcer.settingsPending = true; });
}

COLORREF BackgroundColour() noexcept {
    const Guard guard(announcer.lock.Section());
    return announcer.colourPending ? announcer.colour : GetSysColor(COLOR_BACKGROUND);
}

}  // namespace halyard
