// What the user asks of the loader on its command line.
#pragma once

#include <cstddef>

namespace halyard::loader {

enum class Action { Status, Enable, Disable, Switch, Config, Restore, RestartSettings, Json, NoGuard, Quit };

struct Command {
    Action action;
    unsigned argument;  // Switch: desktop id; Config: page, counted from 0
};

inline constexpr std::size_t MaxCommands = 16;

struct CommandLine {
    bool good = true;
    std::size_t count = 0;
    Command commands[MaxCommands] = {};

    bool Has(Action action) const noexcept;
};

// Reads the arguments behind the program's name. `good` is false for a switch that doesn't exist, a number that isn't
// one, or more than 16 commands.
CommandLine ParseCommandLine(int count, const char* const* arguments) noexcept;

inline constexpr char UsageText[] =
    "usage: tvlhload [switch ...]\n"
    "Without a switch: starts Halyard and stays resident. With Halyard running, hands the switches to it.\n"
    "  --status            what is on, the desktops and their windows, the guard, programs inside, what failed\n"
    "  --json              the same as JSON\n"
    "  --enable            turns the system on\n"
    "  --disable           turns it off; every window comes back\n"
    "  --switch ID         makes the desktop with that number current\n"
    "  --config [PAGE]     opens the settings, on a page counted from 0\n"
    "  --restore           shows every window that Halyard has hidden, also when Halyard doesn't run or answer\n"
    "  --restart-settings  has Halyard and all programs read the registry anew\n"
    "  --no-guard          starts Halyard without the second process that cleans up after a killed one\n"
    "  --quit              ends Halyard\n"
    "One of these alone:\n"
    "  --help              this text\n"
    "  --exclude PROGRAM   keeps Halyard out of the program with that path\n"
    "  --include PROGRAM   takes that back\n"
    "  --excluded          lists the programs that Halyard keeps out of\n"
    "  --programs          shows the programs that Halyard takes part in, and why it treats their windows as it does\n"
    "  --autostart on|off  whether Halyard starts when you log on\n";

}  // namespace halyard::loader
