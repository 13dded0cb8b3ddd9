// The global settings as a table: their names, their defaults, how they are read and set.
#pragma once

#include "process/settings.h"

namespace halyard::test {

struct Field {
    const char* name;
    bool isSwitch;  // anything but 0 reads as 1
    DWORD built;    // before the first read
    DWORD missing;  // the key opens, the value isn't there
    DWORD (*get)(const Settings&);
    void (*set)(Settings&, DWORD);  // null for those that are stored at once

    DWORD AsRead(DWORD stored) const { return isSwitch && stored ? 1 : stored; }
};

template <auto Getter>
DWORD Get(const Settings& from) {
    return static_cast<DWORD>((from.*Getter)());
}

template <auto Setter>
void SetNumber(Settings& to, DWORD value) {
    (to.*Setter)(value);
}

template <auto Setter>
void SetSwitch(Settings& to, DWORD value) {
    (to.*Setter)(value != 0);
}

inline void SetDialogMode(Settings& to, DWORD value) {
    to.SetDialogControl(value, to.DialogMonitor());
}

inline void SetDialogDisplay(Settings& to, DWORD value) {
    to.SetDialogControl(to.DialogControl(), value);
}

using S = Settings;

inline constexpr Field Fields[] = {
    {"Autodock", true, 1, 0, Get<&S::Autodock>, SetSwitch<&S::SetAutodock>},
    {"Run", true, 0, 0, Get<&S::Run>, nullptr},
    {"CtrlMax", false, 0, 0, Get<&S::CtrlMax>, SetNumber<&S::SetCtrlMax>},
    {"DialogControl", false, 0, 0, Get<&S::DialogControl>, SetDialogMode},
    {"DialogMonitor", false, 1, 0, Get<&S::DialogMonitor>, SetDialogDisplay},
    {"MultiDesk", true, 0, 0, Get<&S::MultiDesk>, SetSwitch<&S::StoreMultiDesk>},
    {"ExtendSysMenu", true, 1, 1, Get<&S::ExtendSysMenu>, SetSwitch<&S::SetExtendSysMenu>},
    {"RunWizard", true, 0, 0, Get<&S::RunWizard>, nullptr},
    {"WindowMem", true, 0, 0, Get<&S::WindowMem>, SetSwitch<&S::SetWindowMem>},
    {"DragTrans", true, 0, 0, Get<&S::DragTrans>, SetSwitch<&S::SetDragTrans>},
    {"DragTransPerCent", false, 0, 75, Get<&S::DragTransPerCent>, SetNumber<&S::SetDragTransPerCent>},
    {"TaskbarsEnable", true, 0, 0, Get<&S::TaskbarsEnable>, SetSwitch<&S::SetTaskbarsEnable>},
    {"TaskbarsShowAllTasks", true, 0, 0, Get<&S::TaskbarsShowAllTasks>, SetSwitch<&S::SetTaskbarsShowAllTasks>},
    {"TaskswitchMirrorEnable", true, 0, 0, Get<&S::TaskswitchMirrorEnable>, SetSwitch<&S::SetTaskswitchMirrorEnable>},
};

}  // namespace halyard::test
