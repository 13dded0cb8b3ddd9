#include "crash/crash_filter.h"

#include "common/handles.h"
#include "crash/crash_report.h"
#include "crash/report_dialog.h"
#include "process/profile.h"
#include "settings/store.h"

#include <utility>

namespace halyard {

namespace {

constexpr unsigned ReportLimit = 0x80000;  // characters
// The report's thread can't start while another thread holds the loader's lock, which may be one that waits for the
// faulted thread. A report that doesn't get on for this long, in ms, is given up.
constexpr DWORD StepLimit = 10000;

// Shared by the faulted thread and the report's. One per process and not on the faulted thread's stack: that may be
// used up, and a report that was given up may still be at work.
struct CrashRecord {
    EXCEPTION_POINTERS* exception;
    HANDLE done;
    volatile LONG progress;
    volatile bool shown;  // the user has it now, and takes as long as the user takes
};

LPTOP_LEVEL_EXCEPTION_FILTER previousFilter = nullptr;
CrashRecord record;
volatile LONG reporting = 0;

bool IsOwnFault(const EXCEPTION_POINTERS& fault) noexcept {
    MEMORY_BASIC_INFORMATION memory = {};
    return VirtualQuery(fault.ExceptionRecord->ExceptionAddress, &memory, sizeof(memory)) &&
           memory.AllocationBase == profile.moduleInstance;
}

DWORD WINAPI ReportThread(void* parameter) {
    auto& crash = *static_cast<CrashRecord*>(parameter);
    // The hooks may go, and the library with them, while the user reads.
    LoadLibraryA(ModulePath(profile.moduleInstance).text);
    InterlockedIncrement(&crash.progress);
    ReportText report(ReportLimit);
    BuildReport(*crash.exception, report, crash.progress);
    ReportDialogData data = {TextBuffer(report.Text()), false};
    crash.shown = true;
    ShowReportDialog(data);
    if (data.excludeProgram) SetExcluded();
    SetEvent(crash.done);
    return static_cast<DWORD>(-1);
}

// Until the user has closed the dialog, or the report's thread has ended or hangs.
void AwaitReport(HANDLE thread) noexcept {
    const HANDLE ends[] = {record.done, thread};
    LONG before = record.progress;
    while (WaitForMultipleObjects(2, ends, FALSE, StepLimit) == WAIT_TIMEOUT) {
        const LONG now = record.progress;
        if (now == before && !record.shown) return;
        before = now;
    }
}

void Report(EXCEPTION_POINTERS* fault) noexcept {
    const KernelHandle done(CreateEventA(nullptr, FALSE, FALSE, nullptr));
    record.exception = fault;
    record.done = done.get();
    DWORD id = 0;
    const KernelHandle thread(CreateThread(nullptr, 0, ReportThread, &record, 0, &id));
    if (done && thread) AwaitReport(thread.get());
}

}  // namespace

void InstallCrashFilter() noexcept {
    previousFilter = SetUnhandledExceptionFilter(CrashFilter);
}

void RemoveCrashFilter() noexcept {
    SetUnhandledExceptionFilter(std::exchange(previousFilter, nullptr));
}

LONG WINAPI CrashFilter(EXCEPTION_POINTERS* fault) {
    if (!IsOwnFault(*fault)) return previousFilter ? previousFilter(fault) : EXCEPTION_CONTINUE_SEARCH;
    SetUnhandledExceptionFilter(nullptr);
    profile.hookEngineActive = false;
    // A thread that faults at the same moment must not take the process, and the report, away from the first.
    if (InterlockedExchange(&reporting, 1) == 0) {
        Report(fault);
        InterlockedExchange(&reporting, 0);
    } else {
        constexpr DWORD Period = 50;  // ms
        while (reporting)
            Sleep(Period);
    }
    return EXCEPTION_EXECUTE_HANDLER;
}

}  // namespace halyard
