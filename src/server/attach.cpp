#include "server/attach.h"

#include "behaviours/application_patches.h"
#include "behaviours/drag_loop.h"
#include "crash/crash_filter.h"
#include "desktops/desktop_list.h"
#include "displays/displays.h"
#include "hook/thread_table.h"
#include "process/profile.h"
#include "process/trace.h"
#include "server/recovery.h"
#include "server/server_window.h"
#include "settings/settings.h"
#include "settings/store.h"

#include <new>
#include <utility>

namespace halyard {

namespace {

bool IsPatchedProgram() noexcept {
    return profile.program.maya || profile.program.modeler;
}

}  // namespace

void OnLoad(HINSTANCE module) noexcept {
    profile.moduleInstance = module;
    ReadSystemVersion(profile);
    threadTable = new (std::nothrow) ThreadTable;
    InstallCrashFilter();
    ReadProgramFlags(profile);
    FindShellWindows(profile);
    // The list of desktops lies in the hive that is chosen here.
    ChooseHive();
    desktopList.Load();
    RefreshDisplays();
    settings.Load();
    if (IsExcluded())
        profile.hookEngineActive = false;
    else if (IsPatchedProgram())
        ApplyApplicationPatches();
    profile.shellHookMessage = RegisterWindowMessageW(L"SHELLHOOK");
    profile.taskbarCreatedMessage = RegisterWindowMessageW(L"TaskbarCreated");
    Trace("OnLoad", "hook engine %s", profile.hookEngineActive ? "active" : "kept out");
}

void OnThreadEnd() noexcept {
    if (threadTable) threadTable->RemoveCurrentThread();
}

void OnUnload() noexcept {
    Trace("OnUnload", "library leaves");
    profile.hookEngineActive = false;
    if (IsPatchedProgram()) RemoveApplicationPatches();
    EndDragLoop();
    // The table stays in memory: a hook call on another thread may still be on its way out.
    if (threadTable) threadTable->DestroyAll();
    RemoveCrashFilter();
    if (!profile.isServerProcess) return;
    // A server that ends by exit has removed nothing. On Wine its hooks would stay in every program, beside the next
    // ones.
    DropHooks();
    DestroyServerWindow();
}

}  // namespace halyard
