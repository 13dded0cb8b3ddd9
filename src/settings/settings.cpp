#include "settings/settings.h"

#include "process/profile.h"
#include "settings/registry_key.h"
#include "settings/store.h"

namespace halyard {

Settings settings;

void Settings::Load() noexcept {
    ChooseHive();
    RegistryKey key;
    if (key.Open(ChosenHive(), ProductKey, KEY_READ)) {
        ctrlMax = key.ReadDwordOr("CtrlMax", 0);
        dialogControl = key.ReadDwordOr("DialogControl", 0);
        dialogMonitor = key.ReadDwordOr("DialogMonitor", 0);
        multiDesk = key.ReadBool("MultiDesk", false);
        hiddenActivation = key.ReadDwordOr("HiddenActivation", 0);
        showsDesktopName = key.ReadBool("ShowDesktopName", true);
        extendSysMenu = key.ReadBool("ExtendSysMenu", true);
        // Layered windows are missing outside the NT family.
        dragTrans = key.ReadBool("DragTrans", false) && profile.isNtFamily;
        dragTransPerCent = key.ReadDwordOr("DragTransPerCent", 75);
        run = key.ReadBool("Run", false);
        runWizard = key.ReadBool("RunWizard", false);
        windowMem = key.ReadBool("WindowMem", false);
        autodock = key.ReadBool("Autodock", false);
        taskbarsEnable = key.ReadBool("TaskbarsEnable", false);
        taskbarsShowAllTasks = key.ReadBool("TaskbarsShowAllTasks", false);
        taskswitchMirrorEnable = key.ReadBool("TaskswitchMirrorEnable", false);
        key.Close();
    }
    if (profile.isServerProcess)
        appAutodockSet = false;
    else
        LoadAppValues();
}

void Settings::LoadAppValues() noexcept {
    RegistryKey key;
    DWORD own = 0;
    const bool open = OpenAppKey(key, false);
    const bool found = open && key.ReadDword("Autodock", own) == ERROR_SUCCESS;
    // The value goes in ahead of its flag: a reader on another thread may come between.
    if (found) appAutodock = own != 0;
    appAutodockSet = found;
    appWindowMem = open && key.ReadBool("WindowMem", false);
}

void Settings::Save() const noexcept {
    RegistryKey key;
    if (key.Create(ChosenHive(), ProductKey)) {
        key.WriteDword("CtrlMax", ctrlMax);
        key.WriteDword("DialogControl", dialogControl);
        key.WriteDword("DialogMonitor", dialogMonitor);
        key.WriteDword("DragTrans", dragTrans);
        key.WriteDword("DragTransPerCent", dragTransPerCent);
        key.WriteDword("ExtendSysMenu", extendSysMenu);
        key.WriteDword("Autodock", autodock);
        key.WriteDword("WindowMem", windowMem);
        key.WriteDword("TaskbarsEnable", taskbarsEnable);
        key.WriteDword("TaskbarsShowAllTasks", taskbarsShowAllTasks);
        key.WriteDword("TaskswitchMirrorEnable", taskswitchMirrorEnable);
        SaveMultiDesk(&key);
        key.Close();
    }
    if (profile.isServerProcess || !OpenAppKey(key, false)) return;
    if (appAutodockSet) key.WriteDword("Autodock", appAutodock);
    key.WriteDword("WindowMem", appWindowMem);
}

void Settings::SaveMultiDesk(const RegistryKey* key) const noexcept {
    if (key)
        key->WriteDword("MultiDesk", multiDesk);
    else
        WriteProductValue("MultiDesk", multiDesk);
}

void Settings::SetRun(bool on) noexcept {
    run = on;
    WriteProductValue("Run", on);
}

void Settings::SetRunWizard(bool on) noexcept {
    runWizard = on;
    WriteProductValue("RunWizard", on);
}

void Settings::SetAppAutodock(bool on) noexcept {
    appAutodock = on;
    appAutodockSet = true;
    RegistryKey key;
    if (OpenAppKey(key, false)) key.WriteDword("Autodock", on);
}

void Settings::SetAppWindowMem(bool on) noexcept {
    appWindowMem = on;
    RegistryKey key;
    if (OpenAppKey(key, true)) key.WriteDword("WindowMem", on);
}

}  // namespace halyard
