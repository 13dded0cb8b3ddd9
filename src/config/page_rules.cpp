#include "config/page_rules.h"

#include "process/protocol.h"
#include "settings/choices.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr int DisplayLimit = 10;

constexpr unsigned short German = 1031;
constexpr unsigned short Italian = 1040;

}  // namespace

MaximiseChecks ChecksOfMaximise(DWORD mode) noexcept {
    return {mode != SpansNever, mode == SpansWithControlKey};
}

DWORD MaximiseOfChecks(MaximiseChecks checks) noexcept {
    if (!checks.across) return SpansNever;
    return checks.withControl ? SpansWithControlKey : SpansAlways;
}

int RowOfDialogChoice(DialogChoice choice) noexcept {
    switch (choice.control) {
    case OnCursorDisplay: return CursorDisplayRow;
    case OnApplicationDisplay: return ApplicationDisplayRow;
    case OnNumberedDisplay:
        return FirstDisplayRow - 1 + static_cast<int>(std::clamp<DWORD>(choice.display, 1, DisplayLimit + 1));
    default: return ApplicationWindowRow;
    }
}

DialogChoice DialogChoiceOfRow(int row, int displayRows) noexcept {
    switch (row) {
    case CursorDisplayRow: return {OnCursorDisplay, 0};
    case ApplicationDisplayRow: return {OnApplicationDisplay, 0};
    case ApplicationWindowRow: return {OnApplicationWindow, 0};
    }
    if (row < FirstDisplayRow || row >= FirstDisplayRow + displayRows) return {0, 0};
    return {OnNumberedDisplay, static_cast<DWORD>(row - FirstDisplayRow + 1)};
}

int DisplayRows(int displays, DialogChoice choice) noexcept {
    const int chosen =
        choice.control == OnNumberedDisplay && choice.display <= DisplayLimit ? static_cast<int>(choice.display) : 0;
    return std::clamp(std::max(displays, chosen), 1, DisplayLimit);
}

WindowsPageEnables EnablesOfWindowsPage(PageState state, bool acrossChecked, bool centredChecked, bool ntFamily,
                                        bool transparencyChecked) noexcept {
    const bool live = state.IsLive();
    return {live, live && acrossChecked, live && centredChecked, live && ntFamily,
            live && ntFamily && transparencyChecked};
}

TaskbarsPageEnables EnablesOfTaskbarsPage(PageState state, bool taskbarsChecked) noexcept {
    return {state.IsLive(), state.IsLive() && taskbarsChecked};
}

DesktopsPageEnables EnablesOfDesktopsPage(PageState state, bool multiDesk) noexcept {
    return {state.IsLive(), state.hooksInstalled && multiDesk, state.IsLive() && multiDesk};
}

DesktopButtons ButtonsOfDesktop(PageState state, bool multiDeskChecked, bool selected, unsigned id,
                                unsigned currentId) noexcept {
    if (!selected || !state.hooksInstalled || !multiDeskChecked) return {false, false, false};
    const bool saved = id != UnsavedDesktopId;
    return {id != DefaultDesktopId && state.canEdit, saved && id != currentId, saved};
}

int ActionColumnWidth(int width, unsigned short userLanguage) noexcept {
    const int perCent = userLanguage == German || userLanguage == Italian ? 55 : 66;
    return width * perCent / 100;
}

}  // namespace halyard
