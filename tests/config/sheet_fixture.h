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
    // The control of the page that shows; null when that page has none of the id.
    HWND Control(int id);

    void ClickControl(int id);
    // Waits until the control is, or isn't, enabled.
    bool Becomes(int id, bool enabled);
    bool BecomesText(int id, const std::string& part);
    void Focus(int id);
    // Chooses the row of a list view by keys, counted from 0.
    void SelectRow(int list, int row);

    // OK and Cancel close the sheet, which is waited for; Apply is waited for until it has nothing more to do.
    void Press(int button);
    bool CanApply() { return IsWindowEnabled(GetDlgItem(SheetWindow(), ApplyButton)) != FALSE; }
    static constexpr int ApplyButton = 0x3021;

    // The stored binding of an action: Alt, Ctrl, Shift and Windows key, each 0 or 1, then the key's code.
    static void StoreBinding(const std::string& action, const std::string& bytes, HKEY hive = HKEY_CURRENT_USER) {
        Store(BindingKey, action.c_str(), REG_BINARY, bytes + std::string(3, 0), hive);
    }
    static std::string StoredBinding(const std::string& action) {
        return BytesOf(BindingKey, action.c_str()).substr(0, 5);
    }
    static const std::string BindingKey;
    bool DesktopBecomes(int id);
};

}  // namespace halyard::test
