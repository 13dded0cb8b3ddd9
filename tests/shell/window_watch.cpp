#include "shell/window_watch.h"

#include "shell/task_windows.h"

#include <algorithm>

namespace standin {

std::vector<ShellEvent> WindowWatch::Look() {
    std::vector<ShellEvent> events;
    std::vector<HWND> present = TaskWindows();
    std::reverse(present.begin(), present.end());  // a later window starts in front of an earlier one
    std::erase_if(windows, [&](const Seen& seen) {
        const bool gone = std::find(present.begin(), present.end(), seen.window) == present.end();
        if (gone) events.push_back({HSHELL_WINDOWDESTROYED, seen.window});
        return gone;
    });
    for (HWND window : present) {
        std::string title = TitleOf(window);
        const auto seen = std::find(windows.begin(), windows.end(), window);
        if (seen == windows.end()) {
            events.push_back({HSHELL_WINDOWCREATED, window});
            windows.push_back({window, std::move(title)});
        } else if (seen->title != title) {
            events.push_back({HSHELL_REDRAW, window});
            seen->title = std::move(title);
        }
    }
    const HWND front = TaskOf(GetForegroundWindow());
    if (front != active) events.push_back({HSHELL_WINDOWACTIVATED, front});
    active = front;
    return events;
}

bool WindowWatch::Knows(HWND window) const {
    return std::find(windows.begin(), windows.end(), window) != windows.end();
}

}  // namespace standin
