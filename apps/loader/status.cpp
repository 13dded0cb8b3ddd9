#include "loader/status.h"

#include "common/wide_text_buffer.h"
#include "loader/desktops.h"
#include "process/protocol.h"
#include "programs/program_keys.h"
#include "programs/running_programs.h"

#include <vector>

namespace halyard::loader {

namespace {

struct DesktopStatus {
    unsigned id;
    std::string name;
    unsigned windows;
};

struct Status {
    bool enabled;
    bool hooked;
    unsigned current;
    std::vector<DesktopStatus> desktops;
    unsigned everywhere;  // windows on all desktops
    DWORD guard;
    std::vector<std::string> failures;  // since the start, the last first
    std::vector<std::string> inside;    // programs with the library in them
    std::vector<std::string> excluded;
};

unsigned WindowsOn(HWND server, DesktopId id) noexcept {
    return static_cast<unsigned>(SendMessageA(server, HM_COUNT_WINDOWS, 0, static_cast<LPARAM>(static_cast<int>(id))));
}

std::vector<std::string> Failures(HWND server) {
    std::vector<std::string> failures;
    char line[256];
    for (WPARAM index = 0;; ++index) {
        const auto atom = static_cast<ATOM>(SendMessageA(server, HM_READ_FAILURE, index, 0));
        if (!atom) return failures;
        if (GlobalGetAtomNameA(atom, line, sizeof(line))) failures.emplace_back(line);
        GlobalDeleteAtom(atom);
    }
}

Status Ask(const Library& library, DWORD guard) {
    const HWND server = library.getServerHwnd();
    Status status = {};
    status.current = CurrentDesktop(library);
    status.enabled = library.isEnabled() != 0;
    // The current desktop again is no switch; the answer tells whether the hooks are in.
    status.hooked = library.setActiveDesktop(status.current) != 0;
    for (const NamedDesktop& desktop : DesktopsOf(library))
        status.desktops.push_back({desktop.id, desktop.name, WindowsOn(server, desktop.id)});
    status.everywhere = WindowsOn(server, AllDesktopsId);
    status.guard = guard;
    status.failures = Failures(server);
    for (const programs::RunningProgram& program : programs::ProgramsInside())
        status.inside.push_back(program.name + " (" + std::to_string(program.process) + ")");
    status.excluded = programs::ExcludedPrograms();
    return status;
}

std::string CountText(unsigned count) {
    return std::to_string(count) + (count == 1 ? " window\n" : " windows\n");
}

void AppendHex(std::string& json, unsigned value) {
    constexpr char Digits[] = "0123456789abcdef";
    json += "\\u";
    for (int shift = 12; shift >= 0; shift -= 4)
        json += Digits[value >> shift & 15];
}

// A JSON string which is all ASCII.
std::string Quoted(const std::string& text) {
    const WideTextBuffer wide(text.c_str());
    std::string json = "\"";
    for (const wchar_t* at = wide.Text(); *at; ++at) {
        if (*at < 0x20 || *at > 0x7E || *at == '"' || *at == '\\')
            AppendHex(json, *at);
        else
            json += static_cast<char>(*at);
    }
    return json + "\"";
}

std::string List(const std::vector<std::string>& texts) {
    std::string json = "[";
    for (const std::string& text : texts)
        json += (json.size() > 1 ? ", " : "") + Quoted(text);
    return json + "]";
}

const char* Bool(bool value) {
    return value ? "true" : "false";
}

}  // namespace

std::string StatusText(const Library& library, DWORD guard) {
    const Status status = Ask(library, guard);
    std::string text = status.enabled ? "enabled: yes\n" : "enabled: no\n";
    text += status.hooked ? "hooks: in\n" : "hooks: out\n";
    text += "current desktop: " + std::to_string(status.current) + "\n";
    for (const DesktopStatus& desktop : status.desktops)
        text += "desktop " + std::to_string(desktop.id) + ": \"" + desktop.name + "\", " + CountText(desktop.windows);
    text += "all desktops: " + CountText(status.everywhere);
    text += "guard: " + (status.guard ? std::to_string(status.guard) : "none") + "\n";
    for (const std::string& program : status.inside)
        text += "inside: " + program + "\n";
    for (const std::string& program : status.excluded)
        text += "excluded: " + program + "\n";
    for (const std::string& failure : status.failures)
        text += "couldn't be had: " + failure + "\n";
    return text;
}

std::string StatusJson(const Library& library, DWORD guard) {
    const Status status = Ask(library, guard);
    std::string desktops;
    for (const DesktopStatus& desktop : status.desktops)
        desktops += (desktops.empty() ? "" : ", ") + ("{\"id\": " + std::to_string(desktop.id)) +
                    ", \"name\": " + Quoted(desktop.name) + ", \"windows\": " + std::to_string(desktop.windows) + "}";
    return std::string("{\"enabled\": ") + Bool(status.enabled) + ", \"hooks\": " + Bool(status.hooked) +
           ", \"currentDesktop\": " + std::to_string(status.current) + ", \"desktops\": [" + desktops +
           "], \"allDesktops\": " + std::to_string(status.everywhere) + ", \"guard\": " + std::to_string(status.guard) +
           ", \"inside\": " + List(status.inside) + ", \"excluded\": " + List(status.excluded) +
           ", \"failures\": " + List(status.failures) + "}\n";
}

}  // namespace halyard::loader
