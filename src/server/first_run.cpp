#include "server/first_run.h"

#include "common/text_buffer.h"
#include "process/profile.h"
#include "process/program_start.h"
#include "settings/settings.h"
#include "settings/store.h"

namespace halyard {

namespace {

constexpr char WizardFile[] = "tvlhlwiz.exe";
constexpr char WizardSwitch[] = " /halyard";

bool StartWizard() noexcept {
    const ModulePath library(profile.moduleInstance);
    TextBuffer path(library.text);
    // Everything up to and with the backslash.
    if (!path.IsEmpty()) path.Room()[library.FileName() - library.text] = 0;
    path.Append(WizardFile);
    TextBuffer commandLine(path);
    commandLine.Append(WizardSwitch);
    return static_cast<bool>(StartProgram(path.Text(), commandLine.Text()));
}

}  // namespace

void StartWizardIfDue() noexcept {
    if (!CanChangeSettings() || settings.RunWizard()) return;
    if (StartWizard()) settings.SetRunWizard(true);
}

}  // namespace halyard
