#include "server/first_run.h"

#include "common/handles.h"
#include "common/wide_text_buffer.h"
#include "process/profile.h"
#include "settings/settings.h"
#include "settings/store.h"

namespace halyard {

namespace {

constexpr char WizardFile[] = "tvlhlwiz.exe";
constexpr char WizardSwitch[] = " /halyard";

BOOL StartNarrow(const TextBuffer& path, TextBuffer& commandLine, PROCESS_INFORMATION& started) noexcept {
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    return CreateProcessA(path.Text(), commandLine.Room(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                          &started);
}

BOOL StartWide(const TextBuffer& path, const TextBuffer& commandLine, PROCESS_INFORMATION& started) noexcept {
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    const WideTextBuffer widePath(path.Text());
    // The platform may change it, and does in no way that matters.
    const WideTextBuffer wideLine(commandLine.Text());
    return CreateProcessW(widePath.Text(), const_cast<wchar_t*>(wideLine.Text()), nullptr, nullptr, FALSE, 0, nullptr,
                          nullptr, &startup, &started);
}

bool StartWizard() noexcept {
    const ModulePath library(profile.moduleInstance);
    TextBuffer path(library.text);
    // Everything up to and with the backslash.
    if (!path.IsEmpty()) path.Room()[library.FileName() - library.text] = 0;
    path.Append(WizardFile);
    TextBuffer commandLine(path);
    commandLine.Append(WizardSwitch);
    PROCESS_INFORMATION started = {};
    if (!(TakesWideText() ? StartWide(path, commandLine, started) : StartNarrow(path, commandLine, started)))
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
