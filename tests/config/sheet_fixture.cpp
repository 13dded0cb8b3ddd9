#include "config/sheet_fixture.h"

#include <commctrl.h>

namespace halyard::test {

const std::string SheetTest::BindingKey = std::string(published::ProductKey) + "\\HotKeys";

HWND SheetTest::SheetWindow() {
    return FindWindowA(nullptr, "Tevral Ombrel Windows Manager");
}

HWND SheetTest::Control(int id) {
    // Of the pages, which are the sheet's dialogs, one shows.
    const HWND sheet = SheetWindow();
    for (HWND page = nullptr; sheet && (page = FindWindowExA(sheet, page, nullptr, nullptr)) != nullptr;)
        if (IsWindowVisible(GetDlgItem(page, id))) return GetDlgItem(page, id);
    return nullptr;
}

void SheetTest::OpenSheet(Page page) {
    Loader("--config " + std::to_string(page));
    constexpr int Picture[] = {IDC_WINDOWS_PICTURE, IDC_TASKBARS_PICTURE, IDC_DESKTOPS_PICTURE, IDC_HOTKEYS_PICTURE};
    ASSERT_TRUE(Eventually([&] { return Control(Picture[page]) != nullptr; })) << "page " << page << " doesn't show";
    ASSERT_TRUE(BringToFront(SheetWindow()));
}

void SheetTest::ClickControl(int id) {
    HWND control = Control(id);
    const auto captured = [&] { return ThreadOf(control).hwndCapture == control; };
    // Box, button and radio button all have their mark near the left edge. A click is over when the button has given
    // the mouse back; what comes before that could take it away.
    const RECT place = PlaceOf(control);
    MoveMouse({place.left + 8, (place.top + place.bottom) / 2});
    PressMouse();
    EXPECT_TRUE(Eventually(captured)) << "control " << id << " doesn't take the click";
    ReleaseMouse();
    EXPECT_TRUE(Eventually([&] { return !captured(); })) << "control " << id << " holds the mouse";
    Ask(SheetWindow(), WM_NULL);
}

bool SheetTest::Becomes(int id, bool enabled) {
    return Eventually([&] { return Control(id) && (IsWindowEnabled(Control(id)) != FALSE) == enabled; });
}

bool SheetTest::BecomesText(int id, const std::string& part) {
    return Eventually([&] { return TextOf(Control(id)).find(part) != part.npos; });
}

void SheetTest::Focus(int id) {
    Ask(GetParent(Control(id)), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(id)), TRUE);
}

void SheetTest::SelectRow(int list, int row) {
    Focus(list);
    const auto selected = [&] {
        return static_cast<int>(Ask(Control(list), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    };
    // Without a selection it depends on what the list last had which of the two makes one.
    if (selected() < 0) {
        TapKey("End Home");
        Eventually([&] { return selected() == 0; });
    }
    // Straight to the row, so that no key is still on its way when it is selected.
    std::string keys;
    for (int now = selected(); now != row; now += now < row ? 1 : -1)
        keys += now < row ? " Down" : " Up";
    if (!keys.empty()) TapKey(keys);
    ASSERT_TRUE(Eventually([&] { return selected() == row; })) << "row " << selected() << ", not " << row;
}

void SheetTest::Press(int button) {
    Click(MiddleOf(GetDlgItem(SheetWindow(), button)));
    EXPECT_TRUE(Eventually([&] { return button == ApplyButton ? !CanApply() : !SheetWindow(); })) << button;
}

bool SheetTest::DesktopBecomes(int id) {
    return Eventually([&] { return Status("current desktop") == std::to_string(id); });
}

}  // namespace halyard::test
