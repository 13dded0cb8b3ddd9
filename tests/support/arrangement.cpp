#include "support/arrangement.h"

#include "support/windows_seen.h"

#include <algorithm>

namespace halyard::test {

namespace {

constexpr std::size_t Outputs = 3;  // of the session
constexpr LONG Width = 1024, Height = 768;

Display DisplayAt(LONG left, LONG top, LONG taskbar = 0) {
    return {{left, top, left + Width, top + Height}, {left, top, left + Width, top + Height - taskbar}};
}

}  // namespace

std::vector<Display> PresentDisplays() {
    std::vector<Display> displays;
    const auto collect = [](HMONITOR display, HDC, RECT*, LPARAM found) WINAPI {
        MONITORINFO info = {};
        info.cbSize = sizeof(info);
        GetMonitorInfoA(display, &info);
        reinterpret_cast<std::vector<Display>*>(found)->push_back({info.rcMonitor, info.rcWork});
        return TRUE;
    };
    EnumDisplayMonitors(nullptr, nullptr, collect, reinterpret_cast<LPARAM>(&displays));
    return displays;
}

std::string Describe(const std::vector<Display>& displays) {
    std::string text;
    for (const auto& [whole, area] : displays)
        text += Format("[%ld,%ld,%ld,%ld work %ld,%ld,%ld,%ld] ", whole.left, whole.top, whole.right, whole.bottom,
                       area.left, area.top, area.right, area.bottom);
    return text;
}

bool Arrange(const std::vector<Display>& wanted) {
    const auto isSo = [&] { return Describe(PresentDisplays()) == Describe(wanted); };
    if (isSo()) return true;
    // The X server counts from the top left corner of them all.
    POINT origin = {0, 0};
    for (const auto& [whole, area] : wanted)
        origin = {std::min(origin.x, whole.left), std::min(origin.y, whole.top)};
    std::string outputs, areas;
    for (std::size_t output = 0; output < Outputs; ++output) {
        outputs += " --output DUMMY" + std::to_string(output);
        if (output >= wanted.size()) {
            outputs += " --off";
            continue;
        }
        const auto& [whole, area] = wanted[output];
        outputs += Format(" --mode %ldx%ld --pos %ldx%ld%s", Width, Height, whole.left - origin.x, whole.top - origin.y,
                          output == 0 ? " --primary" : "");
        areas += Format("%s%ld,%ld,%ld,%ld", output == 0 ? "" : ",", area.left - origin.x, area.top - origin.y,
                        area.right - area.left, area.bottom - area.top);
    }
    // The work areas are read when the outputs change, so that they must change: they go away first.
    RunBeneath("xprop -root -f _NET_CURRENT_DESKTOP 32c -set _NET_CURRENT_DESKTOP 0 && "
               "xprop -root -f _GTK_WORKAREAS_D0 32c -set _GTK_WORKAREAS_D0 " +
               areas + " && xrandr --output DUMMY1 --off --output DUMMY2 --off && xrandr" + outputs);
    return Eventually(isSo);
}

std::vector<Display> SideBySide() {
    return {DisplayAt(0, 0), DisplayAt(Width, 0)};
}
std::vector<Display> AbovePrimary() {
    return {DisplayAt(0, 0), DisplayAt(0, -Height)};
}
std::vector<Display> ThreeInARow() {
    return {DisplayAt(0, 0), DisplayAt(-Width, 0), DisplayAt(Width, 0)};
}
std::vector<Display> UnderTaskbars() {
    return {DisplayAt(0, 0, 40), DisplayAt(Width, 0, 40)};
}

void AnnounceDisplays() {
    // As sent messages, for nobody's answer is worth waiting for.
    SendNotifyMessageA(HWND_BROADCAST, WM_DISPLAYCHANGE, 32, MAKELONG(Width, Height));
}

void RunBeneath(const std::string& command) {
    std::string line = "Z:\\bin\\sh -c \"" + command + "\"";
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION made = {};
    CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &made);
    CloseHandle(made.hThread);
    CloseHandle(made.hProcess);
}

}  // namespace halyard::test
