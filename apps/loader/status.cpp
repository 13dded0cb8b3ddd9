#include "loader/status.h"

#include "process/protocol.h"

namespace halyard::loader {

namespace {

constexpr unsigned NameRoom = 261;

std::string WindowCount(HWND server, DesktopId id) {
    const auto count = SendMessageA(server, HM_COUNT_WINDOWS, 0, static_cast<LPARAM>(static_cast<int>(id)));
    return std::to_string(static_cast<unsigned>(count)) + (count == 1 ? " window\n" : " windows\n");
}

// What went wrong since the start, the last first. Nothing where nothing did.
std::string Failures(HWND server) {
    std::string text;
    char line[256];
    for (WPARAM index = 0;; ++index) {
        const auto atom = static_cast<ATOM>(SendMessageA(server, HM_READ_FAILURE, index, 0));
        if (!atom) return text;
        if (GlobalGetAtomNameA(atom, line, sizeof(line))) text += std::string("couldn't be had: ") + line + "\n";
        GlobalDeleteAtom(atom);
    }
}

}  // namespace

std::string StatusText(const Library& library) {
    const HWND server = library.getServerHwnd();
    unsigned current = 0;
    library.getCurrentDesktopId(&current);
    // The current desktop again is no switch; the answer tells whether the hooks are in.
    const bool hooked = library.setActiveDesktop(current) != 0;

    std::string text = library.isEnabled() ? "enabled: yes\n" : "enabled: no\n";
    text += hooked ? "hooks: in\n" : "hooks: out\n";
    text += "current desktop: " + std::to_string(current) + "\n";
    char name[NameRoom] = {};
    unsigned id = 0;
    for (unsigned index = 0; library.getDesktop(index, name, sizeof(name), &id); ++index)
        text += "desktop " + std::to_string(id) + ": \"" + name + "\", " + WindowCount(server, id);
    text += "all desktops: " + WindowCount(server, AllDesktopsId);
    return text + Failures(server);
}

}  // namespace halyard::loader
