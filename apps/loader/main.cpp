// The resident loader: maps the library, runs the server, and takes orders from later starts of itself.
#include "common/handles.h"
#include "loader/arguments.h"
#include "loader/channel.h"
#include "loader/guard.h"
#include "loader/library.h"
#include "loader/output.h"
#include "loader/own_commands.h"
#include "loader/resident.h"

#include <cstdlib>

namespace halyard::loader {

namespace {

enum ExitStatus : int { Done = 0, Failed = 1, BadUsage = 2 };

constexpr DWORD StartTimeout = 20000;  // ms until a starting instance must have its window
constexpr DWORD PollPeriod = 50;       // ms

// Asking and ending make sense only of an instance that runs.
bool NeedsRunning(const CommandLine& line) noexcept {
    return line.Has(Action::Status) || line.Has(Action::Json) || line.Has(Action::RestartSettings) ||
           line.Has(Action::Quit) || line.Has(Action::Restore);
}

// The resident instance owns the mutex. That it merely exists says little: an instance that is about to hand its
// switches over has it open as well.
bool BecomeResident(const KernelHandle& mutex) noexcept {
    const DWORD outcome = WaitForSingleObject(mutex.get(), 0);
    return outcome == WAIT_OBJECT_0 || outcome == WAIT_ABANDONED;
}

// Never makes the mutex, so that asking stands in nobody's way.
bool AnyInstance() noexcept {
    return static_cast<bool>(KernelHandle(OpenMutexA(SYNCHRONIZE, FALSE, InstanceMutex)));
}

int Reside(const CommandLine& line) {
    Library library = {};
    if (BindLibrary(library)) return RunResident(library, line);
    PrintError("tvlhload: tvlHalyd.dll isn't beside this program or is damaged\n");
    return Failed;
}

// An instance that can't do it leaves it to this process.
int RestoreByHand() noexcept {
    RestoreWindows();
    return Done;
}

CommandLine Parsed(const std::vector<std::string>& arguments) {
    std::vector<const char*> texts;
    for (const std::string& argument : arguments)
        texts.push_back(argument.c_str());
    return ParseCommandLine(static_cast<int>(texts.size()), texts.data());
}

int Run(const std::vector<std::string>& arguments) {
    if (arguments.size() == 2 && arguments[0] == "--guard")
        return RunGuard(std::strtoul(arguments[1].c_str(), nullptr, 10));
    int status = Done;
    if (RunOwnCommand(arguments, status)) return status;
    const CommandLine line = Parsed(arguments);
    if (!line.good) {
        PrintError(UsageText);
        return BadUsage;
    }
    const bool needsRunning = NeedsRunning(line);
    const KernelHandle mutex(needsRunning ? nullptr : CreateMutexA(nullptr, FALSE, InstanceMutex));
    const DWORD start = GetTickCount();
    // Another instance may be on its way, without its window yet, or on its way out, with it no longer.
    do {
        if (needsRunning && !AnyInstance()) {
            if (line.Has(Action::Restore)) return RestoreByHand();
            Print("Halyard isn't running\n");
            return Failed;
        }
        if (!needsRunning && BecomeResident(mutex)) return Reside(line);
        Answer answer;
        HWND resident = FindWindowA(ResidentClass, nullptr);
        if (resident && SendCommands(resident, line, answer)) {
            Print(answer.text);
            return answer.failed ? Failed : Done;
        }
        Sleep(PollPeriod);
    } while (GetTickCount() - start < StartTimeout);
    if (line.Has(Action::Restore)) return RestoreByHand();
    PrintError("tvlhload: the running instance doesn't answer\n");
    return Failed;
}

}  // namespace

}  // namespace halyard::loader

int main(int count, char** arguments) {
    return halyard::loader::Run(halyard::loader::Arguments(count, arguments));
}
