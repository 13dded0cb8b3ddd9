// The property sheet under a user's hands.
#pragma once

#include "resources/resource_ids.h"
#include "support/behaviour_fixture.h"

namespace halyard::test {

enum Page { WindowsTab, TaskbarsTab, DesktopsTab, HotkeysTab };

class SheetTest : public BehaviourTest {
protected:
    // Has the loader open the sheet, or raise it, and waits until the page shows and has the foreground.
    void OpenSheet(Page page);
    // The sheet of the running loader; null when there is none.
    HWND SheetWindow();
    unsigned CountSheets();
    // The control of the page that shows; null when that page has none of the id.
    HWND Control(int id);

    void ClickControl(int id);
    // Waits until the control is, or isn't, enabled.
    testing::AssertionResult Becomes(int id, bool enabled);
    bool IsOn(int id) { return Ask(Control(id), BM_GETCHECK) == BST_CHECKED; }
    std::string TextOfControl(int id);
    void Focus(int id);
    // Chooses the row of a list view by keys, counted from 0.
    void SelectRow(int list, int row);

    // OK and Cancel close the sheet, which is waited for; Apply is waited for until it has nothing more to do.
    void PressOk() { Press(IDOK, true); }
    void PressCancel() { Press(IDCANCEL, true); }
    void PressApply() { Press(ApplyButton, false); }
    bool CanApply() { return IsWindowEnabled(GetDlgItem(SheetWindow(), ApplyButton)) != FALSE; }

    static DWORD Stored(const char* value) { return NumberOr(published::ProductKey, value, 0xDEAD); }
    testing::AssertionResult DesktopBecomes(int id);

private:
    static constexpr int ApplyButton = 0x3021;
    void Press(int button, bool closes);
};

}  // namespace halyard::test
