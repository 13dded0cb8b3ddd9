#include "server/first_run.h"

#include "common/handles.h"
#include "common/text_buffer.h"
#include "process/profile.h"
#include "settings/settings.h"
#include "settings/store.h"

#include <cstring>

namespace halyard {

namespace {

constexpr char WizardFile[] = "tvlhlwiz.exe";
constexpr char WizardSwitch[] = " /halyard";

bool StartWizard() noexcept {
    const ModulePath library(profile.moduleInstance);
    const char* slash = std::strrchr(library.text, '\\');
    TextBuffer path;
    if (slash) {
        // Everything up to and with the backslash.
        path = library.text;
        path.Room()[slash + 1 - library.text] = 0;
    }
    path.Append(WizardFile);
    TextBuffer commandLine(path);
    commandLine.Append(WizardSwitch);
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started = {};
    if (!CreateProcessA(path.Text(), commandLine.Room(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &started))
        return false;
    const KernelHandle process(started.hProcess);
    const KernelHandle thread(started.hThread);
    return true;
}

}  // namespace

void StartWizardIfDue() noexcept {
    if (!CanChangeSettings() || settings.RunWizard()) return;
    if (StartWizard()) settings.SetRunWizard(true);
}

}  // namespace halyard
