#include "recording_behaviours.h"

#include "hook/behaviours.h"
#include "hook/reload.h"
#include "process/protocol.h"

#include <cstdio>
#include <utility>

namespace halyard::test {

Recording recording;

namespace {

std::string MessageName(UINT message) {
    switch (message) {
    case HM_WINDOW_ATTACH: return "ATTACH";
    case HM_WINDOW_DETACH: return "DETACH";
    case HM_WINDOW_CHANGED: return "CHANGED";
    case HM_OPEN_CONFIG: return "OPEN_CONFIG";
    }
    return "message " + std::to_string(message);
}

}  // namespace

void Recording::Add(const std::string& line, HWND window) {
    TakePosted();
    const auto name = names.find(window);
    if (name == names.end())
        calls.push_back(line + " ?");
    else
        calls.push_back(name->second.empty() ? line : line + " " + name->second);
    if (during) during(line);
}

void Recording::AddMessage(const char* how, UINT message, WPARAM wParam, LPARAM lParam) {
    std::string line = std::string(how) + " " + MessageName(message) + " " + std::to_string(lParam);
    const auto name = names.find(reinterpret_cast<HWND>(wParam));
    if (name == names.end() && wParam)
        line += " ?";
    else if (name != names.end() && !name->second.empty())
        line += " " + name->second;
    calls.push_back(line);
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

void Recording::Reset() {
    *this = Recording();
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
    std::snprintf(line, sizeof(line), "UpdateMenuExtension %u %lX",
                  static_cast<unsigned>(reinterpret_cast<ULONG_PTR>(menu)), static_cast<unsigned long>(lParam));
    recording.Add(line, tracked.window);
}

bool HandleSysCommand(TrackedWindow& tracked, WPARAM command, LPARAM lParam) noexcept {
    char line[80];
    std::snprintf(line, sizeof(line), "HandleSysCommand %X %ld hit %d", static_cast<unsigned>(command),
                  static_cast<long>(lParam), tracked.lastHitTest);
    recording.Add(line, tracked.window);
    return recording.commandAnswer;
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

void ReloadSettings() noexcept {
    recording.Add("ReloadSettings", recording.server);
}

void ReloadDesktops() noexcept {
    recording.Add("ReloadDesktops", recording.server);
}

}  // namespace halyard
