// What the pages of the sheet show and enable, on plain values.
#pragma once

#include "common/win_types.h"

namespace halyard {

// Whether the user may edit, and whether the hooks are in: what every page depends on.
struct PageState {
    bool canEdit;
    bool hooksInstalled;
    bool IsLive() const noexcept { return canEdit && hooksInstalled; }
};

// Maximising over all displays: two check boxes for one number.
struct MaximiseChecks {
    bool across;
    bool withControl;
};
MaximiseChecks ChecksOfMaximise(DWORD mode) noexcept;
DWORD MaximiseOfChecks(MaximiseChecks checks) noexcept;

// Rows of the box that says where dialogs go; a row for each display follows.
enum DialogRow : int { CursorDisplayRow = 0, ApplicationDisplayRow = 1, ApplicationWindowRow = 2, FirstDisplayRow = 3 };

struct DialogChoice {
    DWORD control;
    DWORD display;
};
int RowOfDialogChoice(DialogChoice choice) noexcept;
// A row that isn't there (-1 among them) gives the choice 0, 0. `displayRows`: how many displays the box lists.
DialogChoice DialogChoiceOfRow(int row, int displayRows) noexcept;
// How many displays the box lists: those of the machine, and up to one that is chosen though it isn't there now, so
// that a display which is away for a while isn't forgotten.
int DisplayRows(int displays, DialogChoice choice) noexcept;

struct WindowsPageEnables {
    bool choices;  // the check boxes and radio buttons
    bool withControl;
    bool dialogWhere;
    bool transparency;
    bool opacity;  // the trackbar and its two labels
};
WindowsPageEnables EnablesOfWindowsPage(PageState state, bool acrossChecked, bool centredChecked, bool ntFamily,
                                        bool transparencyChecked) noexcept;

struct TaskbarsPageEnables {
    bool choices;
    bool whichTasks;
};
TaskbarsPageEnables EnablesOfTaskbarsPage(PageState state, bool taskbarsChecked) noexcept;

struct DesktopsPageEnables {
    bool multiDesk;
    bool list;
    bool add;
};
DesktopsPageEnables EnablesOfDesktopsPage(PageState state, bool multiDesk) noexcept;

// Buttons that depend on the selected row. `id`: of its desktop, -1 for a row that isn't applied yet.
struct DesktopButtons {
    bool remove;
    bool activate;
    bool wallpaper;
};
DesktopButtons ButtonsOfDesktop(PageState state, bool multiDeskChecked, bool selected, unsigned id,
                                unsigned currentId) noexcept;

// Width of the first column of hotkeys. German and Italian have short actions and long key names.
int ActionColumnWidth(int width, unsigned short userLanguage) noexcept;

}  // namespace halyard
