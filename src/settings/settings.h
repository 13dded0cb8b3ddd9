// The configuration of this process: what it read from the registry, and the ways to change and store it.
#pragma once

#include "common/win_types.h"

namespace halyard {

class RegistryKey;

// One object per process, `settings`, built before the load step. All fields are single words or bytes without a lock:
// any thread reads, and a reader beside a `Load` sees the old or the new value of each field. Reads that fail give the
// default of the field, writes that fail are lost; memory then still has the new value.
class Settings {
public:
    Settings() noexcept = default;
    virtual ~Settings() = default;

    // Reads everything anew, the program's own values outside the server. When the key can't be opened the global
    // values stay as they are.
    void Load() noexcept;

    // Writes the global values but `Run` and `RunWizard`, and outside the server the program's own values if it has a
    // key.
    void Save() const noexcept;

    // Writes `MultiDesk` into `key`, or opens the key of the chosen hive if that is null.
    void SaveMultiDesk(const RegistryKey* key) const noexcept;

    // Stored at once.
    void SetRun(bool on) noexcept;
    void SetRunWizard(bool on) noexcept;
    void SetAppAutodock(bool on) noexcept;   // a program without a key gets none: the value then holds in this process
    void SetAppWindowMem(bool on) noexcept;  // makes the program's key

    bool EffectiveAutodock() const noexcept { return appAutodockSet ? appAutodock : autodock; }
    bool RemembersWindows() const noexcept { return windowMem && appWindowMem; }

    bool Autodock() const noexcept { return autodock; }
    bool AppAutodock() const noexcept { return appAutodock; }
    bool AppAutodockSet() const noexcept { return appAutodockSet; }
    bool Run() const noexcept { return run; }
    DWORD CtrlMax() const noexcept { return ctrlMax; }              // 0 off, 1 with the Control key, 2 always
    DWORD DialogControl() const noexcept { return dialogControl; }  // 0 to 4
    DWORD DialogMonitor() const noexcept { return dialogMonitor; }  // display number
    bool MultiDesk() const noexcept { return multiDesk; }
    DWORD HiddenActivation() const noexcept { return hiddenActivation; }  // what a hidden window's activation brings
    bool ShowsDesktopName() const noexcept { return showsDesktopName; }   // when a desktop comes
    bool ExtendSysMenu() const noexcept { return extendSysMenu; }
    bool RunWizard() const noexcept { return runWizard; }
    bool WindowMem() const noexcept { return windowMem; }
    bool AppWindowMem() const noexcept { return appWindowMem; }
    bool DragTrans() const noexcept { return dragTrans; }
    DWORD DragTransPerCent() const noexcept { return dragTransPerCent; }  // as stored: may be above 100
    bool TaskbarsEnable() const noexcept { return taskbarsEnable; }
    bool TaskbarsShowAllTasks() const noexcept { return taskbarsShowAllTasks; }
    bool TaskswitchMirrorEnable() const noexcept { return taskswitchMirrorEnable; }

    // Memory only, until `Save`. `SetMultiDesk` of the desktops is the one that also brings the windows back.
    void SetAutodock(bool on) noexcept { autodock = on; }
    void SetCtrlMax(DWORD mode) noexcept { ctrlMax = mode; }
    void SetDialogControl(DWORD mode, DWORD display) noexcept {
        dialogControl = mode;
        dialogMonitor = display;
    }
    void StoreMultiDesk(bool on) noexcept { multiDesk = on; }
    void SetExtendSysMenu(bool on) noexcept { extendSysMenu = on; }
    void SetWindowMem(bool on) noexcept { windowMem = on; }
    void SetDragTrans(bool on) noexcept { dragTrans = on; }
    void SetDragTransPerCent(DWORD perCent) noexcept { dragTransPerCent = perCent; }
    void SetTaskbarsEnable(bool on) noexcept { taskbarsEnable = on; }
    void SetTaskbarsShowAllTasks(bool on) noexcept { taskbarsShowAllTasks = on; }
    void SetTaskswitchMirrorEnable(bool on) noexcept { taskswitchMirrorEnable = on; }

private:
    void LoadAppValues() noexcept;

    bool autodock = true;
    bool appAutodock = false;
    bool appAutodockSet = false;
    bool run = false;
    DWORD ctrlMax = 0;
    DWORD dialogControl = 0;
    DWORD dialogMonitor = 1;
    bool multiDesk = false;
    DWORD hiddenActivation = 0;
    bool showsDesktopName = true;
    bool extendSysMenu = true;
    bool runWizard = false;
    bool windowMem = false;
    bool appWindowMem = false;
    bool dragTrans = false;
    DWORD dragTransPerCent = 0;
    bool taskbarsEnable = false;
    bool taskbarsShowAllTasks = false;
    bool taskswitchMirrorEnable = false;
};

extern Settings settings;

}  // namespace halyard
