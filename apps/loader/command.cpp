#include "loader/command.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace halyard::loader {

namespace {

enum class Operand { None, Optional, Required };

struct Switch {
    const char* text;
    Action action;
    Operand operand;
};

constexpr Switch Switches[] = {
    {"--status", Action::Status, Operand::None},     {"--enable", Action::Enable, Operand::None},
    {"--disable", Action::Disable, Operand::None},   {"--switch", Action::Switch, Operand::Required},
    {"--config", Action::Config, Operand::Optional}, {"--quit", Action::Quit, Operand::None},
    {"--json", Action::Json, Operand::None},         {"--restart-settings", Action::RestartSettings, Operand::None},
    {"--restore", Action::Restore, Operand::None},   {"--no-guard", Action::NoGuard, Operand::None},
};

const Switch* FindSwitch(const char* text) noexcept {
    for (const Switch& known : Switches)
        if (std::strcmp(known.text, text) == 0) return &known;
    return nullptr;
}

bool ReadNumber(const char* text, unsigned& number) noexcept {
    if (!*text || std::strlen(text) > 9 || std::strspn(text, "0123456789") != std::strlen(text)) return false;
    number = static_cast<unsigned>(std::strtoul(text, nullptr, 10));
    return true;
}

}  // namespace

bool CommandLine::Has(Action action) const noexcept {
    return std::any_of(commands, commands + count, [=](const Command& command) { return command.action == action; });
}

CommandLine ParseCommandLine(int count, const char* const* arguments) noexcept {
    CommandLine line;
    for (int index = 0; index < count; ++index) {
        const Switch* known = FindSwitch(arguments[index]);
        if (!known || line.count == MaxCommands) {
            line.good = false;
            break;
        }
        Command& command = line.commands[line.count++];
        command.action = known->action;
        if (known->operand == Operand::None) continue;
        const bool present = index + 1 < count && std::strncmp(arguments[index + 1], "--", 2) != 0;
        if (!present && known->operand == Operand::Optional) continue;
        if (!present || !ReadNumber(arguments[++index], command.argument)) {
            line.good = false;
            break;
        }
    }
    return line;
}

}  // namespace halyard::loader
