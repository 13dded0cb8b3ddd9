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
    ASSERT_NE(control, nullptr) << "no control " << id;
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
    const auto selected = [&] { return Ask(Control(list), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED); };
    // Without a selection it depends on what the list last had which key makes one.
    for (const char* key : {"Down", "Home", "End"})
        if (selected() < 0) {
            TapKey(key);
            Eventually([&] { return selected() >= 0; }, 500);
        }
    // Key by key, so that none is still on its way when the row is there.
    for (int now = static_cast<int>(selected()); now != row; now = static_cast<int>(selected())) {
        TapKey(now < row ? "Down" : "Up");
        ASSERT_TRUE(Eventually([&] { return selected() != now; }))
            << "row " << now << " stays selected, not " << row << "; in front " << Describe(GetForegroundWindow())
            << ", with the focus " << Describe(ThreadOf(SheetWindow()).hwndFocus);
    }
}

void SheetTest::Press(int button) {
    Click(MiddleOf(GetDlgItem(SheetWindow(), button)));
    EXPECT_TRUE(Eventually([&] { return button == ApplyButton ? !CanApply() : !SheetWindow(); })) << button;
}

testing::AssertionResult SheetTest::DesktopBecomes(int id) {
    return Comes([&] { return Status("current desktop") == std::to_string(id); },
                 [&] { return "the current desktop is " + Status("current desktop"); });
}

}  // namespace halyard::test
