// Finds, places and sends to a desktop the windows of other programs, by their titles: the hands of the demonstration.
#include "process/protocol.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <windows.h>

namespace {

constexpr DWORD FindTimeout = 30000;  // ms
constexpr DWORD PollPeriod = 50;      // ms

struct Search {
    const char* title;
    HWND found;
};

BOOL CALLBACK MatchTitle(HWND window, LPARAM searched) {
    auto& search = *reinterpret_cast<Search*>(searched);
    char title[256] = {};
    GetWindowTextA(window, title, sizeof(title));
    if (!std::strstr(title, search.title)) return TRUE;
    search.found = window;
    return FALSE;
}

// A top-level window, shown or not, whose title has `title` in it; waited for.
HWND FindByTitle(const char* title) noexcept {
    Search search = {title, nullptr};
    for (DWORD waited = 0; !search.found && waited < FindTimeout; waited += PollPeriod) {
        if (waited) Sleep(PollPeriod);
        EnumWindows(MatchTitle, reinterpret_cast<LPARAM>(&search));
    }
    if (!search.found) std::fprintf(stderr, "demo_window: no window has \"%s\" in its title\n", title);
    return search.found;
}

int Place(HWND window, char** place) noexcept {
    return MoveWindow(window, std::atoi(place[0]), std::atoi(place[1]), std::atoi(place[2]), std::atoi(place[3]), TRUE)
               ? 0
               : 1;
}

int SendToDesktop(HWND window, const char* desktop) noexcept {
    HWND server = FindWindowA(halyard::ServerWindowClass, nullptr);
    if (!server) return 1;
    SendMessageA(server, halyard::HM_WINDOW_ATTACH, reinterpret_cast<WPARAM>(window), std::atoi(desktop));
    return 0;
}

int PrintVisible(int count, char** titles) noexcept {
    for (int index = 0; index < count; ++index) {
        HWND window = FindByTitle(titles[index]);
        if (!window) return 1;
        if (IsWindowVisible(window)) std::printf("%s\n", titles[index]);
    }
    return 0;
}

int Usage() noexcept {
    std::fputs("usage: demo_window place TITLE LEFT TOP WIDTH HEIGHT\n"
               "       demo_window send TITLE DESKTOP\n"
               "       demo_window front TITLE        ends with 0 where that window is in front\n"
               "       demo_window visible TITLE...   prints the titles of those that are\n",
               stderr);
    return 2;
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) return Usage();
    const auto is = [&](const char* command, int wanted) {
        return std::strcmp(arguments[1], command) == 0 && (wanted == 0 || count == wanted);
    };
    if (is("visible", 0)) return PrintVisible(count - 2, arguments + 2);
    if (!is("place", 7) && !is("send", 4) && !is("front", 3)) return Usage();
    HWND window = FindByTitle(arguments[2]);
    if (!window) return 1;
    if (is("front", 3)) return GetForegroundWindow() == window ? 0 : 1;
    return count == 7 ? Place(window, arguments + 3) : SendToDesktop(window, arguments[3]);
}
