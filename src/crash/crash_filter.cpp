#include "crash/crash_filter.h"

#include "common/handles.h"
#include "crash/crash_report.h"
#include "crash/report_dialog.h"
#include "process/profile.h"
#include "settings/store.h"

#include <new>
#include <utility>

namespace halyard {

namespace {

constexpr unsigned ReportLimit = 0x80000;  // characters
// A report that makes no progress for this long, in ms, is shown as far as it got. A dialog that doesn't come up for
// this long is given up.
constexpr DWORD StepLimit = 10000;

// Shared by the faulted thread and those that report. One per process and not on the faulted thread's stack: that may
// be used up, and a thread that was given up may still be at work.
struct CrashRecord {
    EXCEPTION_POINTERS* exception;
    ReportText* volatile report;  // null until the thread that builds it has begun
    volatile LONG progress;
    volatile LONG claimed;  // 1 once a thread has taken it upon itself to show the report
    volatile bool isUp;     // the dialog is there, and the user takes as long as the user takes
};

LPTOP_LEVEL_EXCEPTION_FILTER previousFilter = nullptr;
CrashRecord record;
volatile LONG reporting = 0;

bool IsOwnFault(const EXCEPTION_POINTERS& fault) noexcept {
    MEMORY_BASIC_INFORMATION memory = {};
    return VirtualQuery(fault.ExceptionRecord->ExceptionAddress, &memory, sizeof(memory)) &&
           memory.AllocationBase == profile.moduleInstance;
}

void Show(const char* text) noexcept {
    if (InterlockedExchange(&record.claimed, 1) != 0) return;
    ReportDialogData data = {TextBuffer(text), false, &record.isUp};
    ShowReportDialog(data);
    if (data.excludeProgram) SetExcluded();
}

DWORD WINAPI BuildAndShow(void*) {
    // The hooks may go, and the library with them, while the user reads.
    HoldLibrary();
    InterlockedIncrement(&record.progress);
    // Never freed: another thread may be reading it, and the process is about to end.
    auto* report = new (std::nothrow) ReportText(ReportLimit);
    if (!report) return 0;
    record.report = report;
    BuildReport(*record.exception, *report, record.progress);
    Show(report->Text());
    return 0;
}

// Shows what there is of the report, or at least its head.
DWORD WINAPI ShowUnfinished(void*) {
    if (const ReportText* unfinished = record.report) {
        Show(unfinished->Text());
        return 0;
    }
    constexpr unsigned HeadLimit = 0x1000;
    ReportText head(HeadLimit);
    BuildReportHead(*record.exception, head);
    Show(head.Text());
    return 0;
}

// Runs `task` on a thread of its own. Whether it came to its end, which includes that the user closed the dialog.
bool Run(LPTHREAD_START_ROUTINE task) noexcept {
    DWORD id = 0;
    const KernelHandle thread(CreateThread(nullptr, 0, task, nullptr, 0, &id));
    if (!thread) return false;
    LONG before = record.progress;
    while (WaitForSingleObject(thread.get(), StepLimit) == WAIT_TIMEOUT) {
        const LONG now = record.progress;
        if (now == before && !record.isUp) return false;
        before = now;
    }
    return true;
}

// Whether this thread holds the loader's lock: then no other thread can start. The lock is taken and kept, since the
// process is about to end.
bool HoldsLoaderLock() noexcept {
    using LockFn = LONG(NTAPI*)(ULONG flags, ULONG * result, ULONG_PTR * cookie);
    constexpr ULONG TryOnly = 2;
    constexpr ULONG Taken = 1;
    const auto lock = EntryOf<LockFn>(GetModuleHandleA("ntdll.dll"), "LdrLockLoaderLock");
    ULONG result = 0;
    ULONG_PTR cookie = 0;
    return lock && lock(TryOnly, &result, &cookie) == 0 && result == Taken;
}

void Report(EXCEPTION_POINTERS* fault) noexcept {
    record.exception = fault;
    if (Run(BuildAndShow)) return;
    const bool hasStack = fault->ExceptionRecord->ExceptionCode != EXCEPTION_STACK_OVERFLOW;
    if (!record.progress && hasStack && HoldsLoaderLock())
        ShowUnfinished(nullptr);
    else
        Run(ShowUnfinished);
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
