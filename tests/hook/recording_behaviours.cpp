#include "hook/recording_behaviours.h"

#include "hook/behaviours.h"
#include "hook/reload.h"
#include "hook/tracked_window.h"

#include <utility>

namespace halyard::test {

Recording recording;

void Recording::Add(const std::string& line, HWND window) {
    TakePosted();
    calls.push_back(window == subject ? line : line + " other");
    if (during) during(line);
}

void Recording::AddMessage(const char* how, UINT message, WPARAM wParam, LPARAM lParam) {
    const std::string other = wParam && reinterpret_cast<HWND>(wParam) != subject ? " other" : "";
    calls.push_back(std::string(how) + " " + std::to_string(message) + " " + std::to_string(lParam) + other);
}

void Recording::TakePosted() {
    MSG message;
    while (server && PeekMessageA(&message, server, WM_USER, 0xFFFF, PM_REMOVE))
        AddMessage("post", message.message, message.wParam, message.lParam);
}

Calls Recording::Take() {
    TakePosted();
    return std::exchange(calls, {});
}

}  // namespace halyard::test

namespace halyard {

using test::recording;

void AddMenuExtension(TrackedWindow& tracked) noexcept {
    recording.Add("AddMenuExtension", tracked.window);
}
void RemoveMenuExtension(TrackedWindow& tracked) noexcept {
    recording.Add("RemoveMenuExtension", tracked.window);
}
void UpdateMenuExtension(TrackedWindow& tracked, HMENU menu, LPARAM lParam) noexcept {
    char line[80];
    wsprintfA(line, "UpdateMenuExtension %u %lX", static_cast<unsigned>(reinterpret_cast<ULONG_PTR>(menu)),
              static_cast<unsigned long>(lParam));
    recording.Add(line, tracked.window);
}
bool ChangesSpanning(const TrackedWindow&, WPARAM) noexcept {
    return recording.changesSpanning;
}
bool HandleSysCommand(TrackedWindow& tracked, WPARAM command, LPARAM lParam) noexcept {
    char line[80];
    wsprintfA(line, "HandleSysCommand %X %ld hit %d", static_cast<unsigned>(command), static_cast<long>(lParam),
              tracked.lastHitTest);
    recording.Add(line, tracked.window);
    return recording.commandTaken;
}
void SaveWindowMemory(TrackedWindow& tracked) noexcept {
    recording.Add("SaveWindowMemory", tracked.window);
}
void RestoreWindowMemory(TrackedWindow& tracked) noexcept {
    recording.Add("RestoreWindowMemory", tracked.window);
}
void BeginDragLoop(TrackedWindow& tracked) noexcept {
    recording.Add("BeginDragLoop", tracked.window);
}
void PlaceDialog(TrackedWindow& tracked) noexcept {
    recording.Add(tracked.placed ? "PlaceDialog placed" : "PlaceDialog unplaced", tracked.window);
}
void RefreshAfterDisplayChange(TrackedWindow& tracked) noexcept {
    recording.Add("RefreshAfterDisplayChange", tracked.window);
}
void ReloadSettings(LPARAM) noexcept {
    recording.Add("ReloadSettings", recording.subject);
}
void ReloadDesktops(LPARAM) noexcept {
    recording.Add("ReloadDesktops", recording.subject);
}

}  // namespace halyard
