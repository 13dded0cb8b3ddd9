#include "process/program_start.h"

#include "common/wide_text_buffer.h"

namespace halyard {

// The platform may write into a command line, and does in no way that matters.
KernelHandle StartProgram(const char* path, const char* line, Inherit inherit, DWORD* id) noexcept {
    PROCESS_INFORMATION started = {};
    BOOL isStarted = FALSE;
    if (TakesWideText()) {
        STARTUPINFOW startup = {};
        startup.cb = sizeof(startup);
        const WideTextBuffer wideLine(line);
        isStarted = CreateProcessW(WideTextBuffer(path).Text(), const_cast<wchar_t*>(wideLine.Text()), nullptr, nullptr,
                                   static_cast<BOOL>(inherit), 0, nullptr, nullptr, &startup, &started);
    } else {
        STARTUPINFOA startup = {};
        startup.cb = sizeof(startup);
        TextBuffer ownLine(line);
        isStarted = CreateProcessA(path, ownLine.Room(), nullptr, nullptr, static_cast<BOOL>(inherit), 0, nullptr,
                                   nullptr, &startup, &started);
    }
    if (!isStarted) return {};
    const KernelHandle thread(started.hThread);
    if (id) *id = started.dwProcessId;
    return KernelHandle(started.hProcess);
}

}  // namespace halyard
