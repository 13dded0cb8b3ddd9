#include "support/arrangement.h"

#include "support/windows_seen.h"

#include <algorithm>

namespace halyard::test {

namespace {

constexpr int Outputs = 3;  // of the session
constexpr LONG Width = 1024;
constexpr LONG Height = 768;
constexpr LONG Taskbar = 40;

Display Plain(LONG left, LONG top, LONG width = Width, LONG height = Height) {
    const RECT whole = {left, top, left + width, top + height};
    return {whole, whole};
}

Display WithTaskbar(Display display) {
    display.workArea.bottom -= Taskbar;
    return display;
}

BOOL CALLBACK Collect(HMONITOR display, HDC, RECT*, LPARAM displays) {
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    GetMonitorInfoA(display, &info);
    reinterpret_cast<std::vector<Display>*>(displays)->push_back({info.rcMonitor, info.rcWork});
    return TRUE;
}

// The X server counts from the top left corner of them all.
POINT OriginOf(const std::vector<Display>& displays) {
    POINT origin = {0, 0};
    for (const Display& display : displays) {
        origin.x = std::min(origin.x, display.whole.left);
        origin.y = std::min(origin.y, display.whole.top);
    }
    return origin;
}

std::string Join(const std::vector<LONG>& numbers, const char* between) {
    std::string text;
    for (LONG number : numbers)
        text += (text.empty() ? "" : between) + std::to_string(number);
    return text;
}

std::string OutputText(int output, const std::vector<Display>& displays) {
    const std::string name = " --output DUMMY" + std::to_string(output);
    if (output >= static_cast<int>(displays.size())) return name + " --off";
    const RECT& whole = displays[static_cast<std::size_t>(output)].whole;
    const POINT origin = OriginOf(displays);
    return name + " --mode " + Join({whole.right - whole.left, whole.bottom - whole.top}, "x") + " --pos " +
           Join({whole.left - origin.x, whole.top - origin.y}, "x") + (output == 0 ? " --primary" : "");
}

std::string WorkAreaText(const std::vector<Display>& displays) {
    const POINT origin = OriginOf(displays);
    std::string text;
    for (const Display& display : displays) {
        const RECT& area = display.workArea;
        text += (text.empty() ? "" : ",") +
                Join({area.left - origin.x, area.top - origin.y, area.right - area.left, area.bottom - area.top}, ",");
    }
    return text;
}

std::string PropertyText(const std::string& name, const std::string& value) {
    return "xprop -root -f " + name + " 32c -set " + name + " " + value + " && ";
}

}  // namespace

std::vector<Display> PresentDisplays() {
    std::vector<Display> displays;
    EnumDisplayMonitors(nullptr, nullptr, Collect, reinterpret_cast<LPARAM>(&displays));
    return displays;
}

std::string Describe(const std::vector<Display>& displays) {
    std::string text;
    for (const auto& [whole, area] : displays)
        text += "[" + Join({whole.left, whole.top, whole.right, whole.bottom}, ",") + " work " +
                Join({area.left, area.top, area.right, area.bottom}, ",") + "] ";
    return text;
}

bool Arrange(const std::vector<Display>& wanted) {
    if (Describe(PresentDisplays()) == Describe(wanted)) return true;
    std::string outputs;
    for (int output = 0; output < Outputs; ++output)
        outputs += OutputText(output, wanted);
    // The work areas are read when the outputs change, so that they must change: they go away first.
    RunBeneath(PropertyText("_NET_CURRENT_DESKTOP", "0") + PropertyText("_GTK_WORKAREAS_D0", WorkAreaText(wanted)) +
               "xrandr --output DUMMY1 --off --output DUMMY2 --off && xrandr" + outputs);
    return Eventually([&] { return Describe(PresentDisplays()) == Describe(wanted); });
}

void RunBeneath(const std::string& command) {
    std::string line = "Z:\\bin\\sh -c \"" + command + "\"";
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION made = {};
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &made)) return;
    CloseHandle(made.hThread);
    CloseHandle(made.hProcess);
}

std::vector<Display> SideBySide() {
    return {Plain(0, 0), Plain(Width, 0)};
}

std::vector<Display> LeftOfPrimary() {
    return {Plain(0, 0), Plain(-Width, 0)};
}

std::vector<Display> AbovePrimary() {
    return {Plain(0, 0), Plain(0, -Height)};
}

std::vector<Display> ThreeInARow() {
    return {Plain(0, 0), Plain(-Width, 0), Plain(Width, 0)};
}

std::vector<Display> UnderTaskbars() {
    return {WithTaskbar(Plain(0, 0)), WithTaskbar(Plain(Width, 0))};
}

std::vector<Display> UnevenHeights() {
    return {Plain(0, 0), Plain(Width, 0, 800, 600)};
}

void AnnounceDisplays() {
    // As sent messages, for nobody's answer is worth waiting for.
    SendNotifyMessageA(HWND_BROADCAST, WM_DISPLAYCHANGE, 32, MAKELONG(Width, Height));
}

}  // namespace halyard::test
