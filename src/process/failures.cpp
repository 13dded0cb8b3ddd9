#include "process/failures.h"

#include "common/handles.h"
#include "process/trace.h"

namespace halyard {

namespace {

struct Failure {
    const char* what;
    DWORD error;
};

constexpr unsigned KeptFailures = 8;

struct Failures {
    Lock lock;
    Failure kept[KeptFailures] = {};
    unsigned count = 0;  // that there ever were
};

Failures failures;

}  // namespace

void KeepFailure(const char* what) noexcept {
    const DWORD error = GetLastError();
    Trace("KeepFailure", "%s: error %u", what, static_cast<unsigned>(error));
    const Guard guard(failures.lock.Section());
    failures.kept[failures.count++ % KeptFailures] = {what, error};
}

ATOM FailureAtom(unsigned index) noexcept {
    Failure failure = {};
    {
        const Guard guard(failures.lock.Section());
        if (index >= KeptFailures || index >= failures.count) return 0;
        failure = failures.kept[(failures.count - 1 - index) % KeptFailures];
    }
    char text[200];
    wsprintfA(text, "%.150s (error %u)", failure.what, static_cast<unsigned>(failure.error));
    return GlobalAddAtomA(text);
}

}  // namespace halyard
