#include "mirror/task_switch_mirror.h"

#include "common/handles.h"
#include "common/row.h"
#include "common/window_class.h"
#include "displays/displays.h"
#include "mirror/mirror_place.h"
#include "process/profile.h"

namespace halyard {

namespace {

constexpr ATOM SwitchWindowAtom = 0x8003;  // the system's class of the task-switch window
constexpr UINT_PTR AltTimer = 100;         // of the manager window: looks whether Alt is up
constexpr UINT AltPeriod = 250;            // ms
constexpr UINT ForwardKeys = MOD_ALT;
constexpr UINT ReverseKeys = MOD_ALT | MOD_SHIFT;

struct TaskSwitchMirror {
    HWND mirrorManager = nullptr;  // never shown; has the hotkeys and the timer. Null when stopped
    HWND switchWindow = nullptr;   // the real one, while there are mirrors of it
    Row<HWND> mirrors;
    ATOM forwardAtom = 0;  // also the ids of the hotkeys
    ATOM reverseAtom = 0;
};

TaskSwitchMirror state;

// The real window may have gone; what the mirror shows then stays.
void Paint(HWND mirror) noexcept {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(mirror, &paint);
    const RECT& part = paint.rcPaint;
    RECT original = {};
    if (state.switchWindow && GetWindowRect(state.switchWindow, &original)) {
        const ScreenDc screen;
        BitBlt(dc, part.left, part.top, WidthOf(part), HeightOf(part), screen.get(), original.left + part.left,
               original.top + part.top, SRCCOPY);
    }
    EndPaint(mirror, &paint);
}

LRESULT CALLBACK MirrorWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_PAINT) Paint(window);
    return DefWindowProcA(window, message, wParam, lParam);
}

LRESULT CALLBACK MirrorManagerWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

WindowClass mirrorClass("TevralWinswitchWindow", MirrorWndProc, CS_VREDRAW | CS_HREDRAW);
WindowClass managerClass("TevralWinswitchManager", MirrorManagerWndProc);

void PutOnTop(HWND mirror) noexcept {
    SetWindowPos(mirror, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
}

void MakeMirror(const RECT& display) noexcept {
    RECT original = {};
    GetWindowRect(state.switchWindow, &original);
    const RECT place = MirrorRect(original, display);
    HWND mirror = mirrorClass.Create(profile.moduleInstance, WS_EX_TOOLWINDOW,
                                     WS_POPUP | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, place);
    if (!mirror) return;
    PutOnTop(mirror);
    state.mirrors.Add(mirror);
}

// The real window is on the primary display.
void MakeMirrors() noexcept {
    RefreshDisplays();
    const DisplaySet set = CurrentDisplays();
    for (unsigned number = 1; number <= set.count; ++number)
        if (const auto& display = *set.Numbered(number); !display.isPrimary) MakeMirror(display.bounds);
}

void ShowMirrors() noexcept {
    if (!state.switchWindow) {
        // None yet: the next press looks again.
        state.switchWindow = FindWindowA(MAKEINTATOM(SwitchWindowAtom), nullptr);
        if (!state.switchWindow) return;
        state.mirrors.Clear();
        MakeMirrors();
        SetTimer(state.mirrorManager, AltTimer, AltPeriod, nullptr);
    }
    for (HWND mirror : state.mirrors) {
        InvalidateRect(mirror, nullptr, TRUE);
        PutOnTop(mirror);
    }
}

void PressKey(BYTE key) noexcept {
    keybd_event(key, 0, 0, 0);
}

// Only presses: the user's own fingers let go. The system's switcher gets the keys while they aren't ours.
void OnHotkey(ATOM id) noexcept {
    const bool reverse = id == state.reverseAtom;
    UnregisterHotKey(state.mirrorManager, id);
    PressKey(VK_MENU);
    if (reverse) PressKey(VK_SHIFT);
    PressKey(VK_TAB);
    ShowMirrors();
    RegisterHotKey(state.mirrorManager, id, reverse ? ReverseKeys : ForwardKeys, VK_TAB);
}

// The real window isn't told: what it shows is the user's to choose from.
void DropMirrors() noexcept {
    KillTimer(state.mirrorManager, AltTimer);
    state.switchWindow = nullptr;
    for (HWND mirror : state.mirrors)
        PostMessageA(mirror, WM_CLOSE, 0, 0);
    state.mirrors.Clear();
}

// The real window may have painted itself after its mirrors did.
void OnTimer() noexcept {
    if (GetKeyState(VK_MENU) >= 0) HideMirrors();
    for (HWND mirror : state.mirrors)
        InvalidateRect(mirror, nullptr, FALSE);
}

LRESULT CALLBACK MirrorManagerWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    // It ends with the mirror only; any program could close it else.
    if (message == WM_CLOSE) return 0;
    if (message == WM_HOTKEY) {
        const auto id = static_cast<ATOM>(wParam);
        if (id && (id == state.forwardAtom || id == state.reverseAtom)) OnHotkey(id);
        return 1;
    }
    if (message == WM_TIMER) OnTimer();
    return DefWindowProcA(window, message, wParam, lParam);
}

void DropAtom(ATOM& atom) noexcept {
    if (atom) GlobalDeleteAtom(atom);
    atom = 0;
}

}  // namespace

void StartMirror() noexcept {
    StopMirror();
    state.mirrorManager = managerClass.Create(profile.moduleInstance, 0, WS_OVERLAPPEDWINDOW, {});
    if (!state.mirrorManager) return;
    state.forwardAtom = GlobalAddAtomA("HalyardTaskbarHotkey");
    RegisterHotKey(state.mirrorManager, state.forwardAtom, ForwardKeys, VK_TAB);
    state.reverseAtom = GlobalAddAtomA("HalyardTaskbarHotkeyR");
    RegisterHotKey(state.mirrorManager, state.reverseAtom, ReverseKeys, VK_TAB);
}

void StopMirror() noexcept {
    if (state.mirrorManager) {
        DropMirrors();
        UnregisterHotKey(state.mirrorManager, state.forwardAtom);
        UnregisterHotKey(state.mirrorManager, state.reverseAtom);
        DestroyWindow(state.mirrorManager);
        state.mirrorManager = nullptr;
    }
    DropAtom(state.forwardAtom);
    DropAtom(state.reverseAtom);
}

void HideMirrors() noexcept {
    if (state.switchWindow) PostMessageA(state.switchWindow, WM_CLOSE, 0, 0);
    DropMirrors();
}

}  // namespace halyard
