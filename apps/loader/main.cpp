// The resident loader: maps the library, runs the server, and takes orders from later starts of itself.
#include "loader/channel.h"
#include "loader/library.h"
#include "loader/output.h"
#include "loader/resident.h"

#include <algorithm>

namespace halyard::loader {

namespace {

enum ExitStatus : int { Done = 0, Failed = 1, BadUsage = 2 };

int HandOver(const CommandLine& line) {
    HWND resident = FindResident();
    std::string answer;
    if (!resident || !SendCommands(resident, line, answer)) {
        PrintError("tvlhload: the running instance doesn't answer\n");
        return Failed;
    }
    Print(answer);
    return Done;
}

// Asking and ending make sense only of an instance that runs.
bool NeedsRunning(const CommandLine& line) noexcept {
    return std::any_of(line.commands, line.commands + line.count, [](const Command& command) {
        return command.action == Action::Status || command.action == Action::Quit;
    });
}

int Run(int count, char** arguments) {
    const CommandLine line = ParseCommandLine(count - 1, arguments + 1);
    if (!line.good) {
        PrintError(UsageText);
        return BadUsage;
    }
    HANDLE instance = CreateMutexA(nullptr, TRUE, InstanceMutex);
    if (GetLastError() == ERROR_ALREADY_EXISTS) return HandOver(line);
    int status = Failed;
    Library library = {};
    if (NeedsRunning(line))
        Print("Halyard isn't running\n");
    else if (!BindLibrary(library))
        PrintError("tvlhload: tvlHalyd.dll isn't beside this program or is damaged\n");
    else
        status = RunResident(library, line);
    if (instance) CloseHandle(instance);
    return status;
}

}  // namespace

}  // namespace halyard::loader

int main(int count, char** arguments) {
    return halyard::loader::Run(count, arguments);
}
