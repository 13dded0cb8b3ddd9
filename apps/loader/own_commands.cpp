#include "loader/own_commands.h"

#include "autostart/autostart.h"
#include "loader/command.h"
#include "loader/output.h"
#include "programs/program_keys.h"
#include "programs/programs_window.h"

#include <cstring>
#include <string>

namespace halyard::loader {

namespace {

enum ExitStatus : int { Done = 0, Failed = 1, BadUsage = 2 };

int Refuse() {
    PrintError(UsageText);
    return BadUsage;
}

int Help(const char*) {
    Print(UsageText);
    return Done;
}

int SetExclusion(const char* program, bool excluded) {
    if (!programs::SetExcludedProgram(program, excluded)) {
        PrintError("tvlhload: this can't be stored\n");
        return Failed;
    }
    Print(std::string(excluded ? "Halyard keeps out of it" : "Halyard takes part in it") + " from its next start on\n");
    return Done;
}

int Exclude(const char* program) {
    return SetExclusion(program, true);
}

int Include(const char* program) {
    return SetExclusion(program, false);
}

int PrintExcluded(const char*) {
    for (const std::string& program : programs::ExcludedPrograms())
        Print(program + "\n");
    return Done;
}

int Programs(const char*) {
    return programs::ShowPrograms() ? Done : Failed;
}

int Autostart(const char* state) {
    const bool on = std::strcmp(state, "on") == 0;
    if (!on && std::strcmp(state, "off") != 0) return Refuse();
    if (SetAutostart(on)) return Done;
    PrintError("tvlhload: this can't be stored\n");
    return Failed;
}

struct OwnCommand {
    const char* name;
    unsigned operands;
    int (*run)(const char* operand);
};

constexpr OwnCommand OwnCommands[] = {{"--help", 0, Help},         {"--exclude", 1, Exclude},
                                      {"--include", 1, Include},   {"--excluded", 0, PrintExcluded},
                                      {"--programs", 0, Programs}, {"--autostart", 1, Autostart}};

}  // namespace

bool RunOwnCommand(const std::vector<std::string>& arguments, int& status) {
    for (const OwnCommand& command : OwnCommands) {
        if (arguments.empty() || arguments[0] != command.name) continue;
        status = arguments.size() == 1 + command.operands ? command.run(arguments.back().c_str()) : Refuse();
        return true;
    }
    return false;
}

}  // namespace halyard::loader
