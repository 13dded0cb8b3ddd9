// The stand-in shell as a program: the task bar of one display, and the task switch.
//   standin_tray [--display N] [--edge left|top|right|bottom] [--tabs]
#include "shell/primary_bar.h"
#include "shell/switcher.h"

#include <cstdlib>
#include <cstring>

#include <shellapi.h>

namespace standin {

namespace {

constexpr const char* Edges[] = {"left", "top", "right", "bottom"};  // by their ABE_ values

UINT EdgeOf(const char* name) {
    UINT edge = ABE_LEFT;
    while (edge < ABE_BOTTOM && std::strcmp(Edges[edge], name) != 0)
        ++edge;
    return edge;
}

int Run(int count, char** arguments) {
    int display = 1;
    UINT edge = ABE_BOTTOM;
    bool tabs = false;
    for (int index = 1; index < count; ++index) {
        const char* value = index + 1 < count ? arguments[index + 1] : "";
        if (std::strcmp(arguments[index], "--display") == 0) display = std::atoi(value);
        if (std::strcmp(arguments[index], "--edge") == 0) edge = EdgeOf(value);
        if (std::strcmp(arguments[index], "--tabs") == 0) tabs = true;
    }
    // The runtime's shell, whose part is taken over, starts with its desktop.
    GetDesktopWindow();
    InitCommonControls();
    StartSwitcher();
    const PrimaryBar bar(display, edge, tabs);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
    return 0;
}

}  // namespace

}  // namespace standin

int main(int count, char** arguments) {
    return standin::Run(count, arguments);
}
