#include "desktops/helper_thread.h"

#include "common/handles.h"
#include "process/profile.h"

namespace halyard {

namespace {

using Work = void (*)();

DWORD WINAPI Run(void* work) {
    reinterpret_cast<Work>(work)();
    FreeLibraryAndExitThread(profile.moduleInstance, 0);
}

}  // namespace

bool RunOnHelperThread(Work work) noexcept {
    // A reference of the thread's own: the library must not be unmapped while the thread runs in it.
    Library library(HoldLibrary());
    DWORD id = 0;
    const KernelHandle thread(CreateThread(nullptr, 0, Run, reinterpret_cast<void*>(work), 0, &id));
    if (!thread) return false;
    library.Release();
    return true;
}

}  // namespace halyard
