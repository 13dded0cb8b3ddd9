#include "config/sheet_fixture.h"

#include <commctrl.h>
#include <prsht.h>

namespace halyard::test {

namespace {

constexpr char SheetTitle[] = "Tevral Ombrel Windows Manager";

struct ControlSearch {
    int id;
    HWND found;
};

BOOL CALLBACK MatchControl(HWND window, LPARAM lParam) {
    auto& search = *reinterpret_cast<ControlSearch*>(lParam);
    if (GetDlgCtrlID(window) == search.id && IsWindowVisible(window)) search.found = window;
    return !search.found;
}

POINT MiddleOf(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

}  // namespace

HWND SheetTest::SheetWindow() {
    return WindowOf(loader->Id(), SheetTitle);
}

unsigned SheetTest::CountSheets() {
    unsigned count = 0;
    for (HWND window : TopLevelWindows())
        if (Describe(window).find(SheetTitle) != std::string::npos) ++count;
    return count;
}

HWND SheetTest::Control(int id) {
    ControlSearch search = {id, nullptr};
    EnumChildWindows(SheetWindow(), MatchControl, reinterpret_cast<LPARAM>(&search));
    return search.found;
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
    const auto captured = [&] {
        GUITHREADINFO info = {};
        info.cbSize = sizeof(info);
        GetGUIThreadInfo(GetWindowThreadProcessId(control, nullptr), &info);
        return info.hwndCapture == control;
    };
    // Box, button and radio button all have their mark near the left edge. A click is over when the button has given
    // the mouse back; what comes before that could take it away.
    RECT place = {};
    GetWindowRect(control, &place);
    MoveMouse({place.left + 8, (place.top + place.bottom) / 2});
    PressMouse();
    EXPECT_TRUE(Eventually(captured)) << "control " << id << " doesn't take the click";
    ReleaseMouse();
    EXPECT_TRUE(Eventually([&] { return !captured(); })) << "control " << id << " holds the mouse";
    Ask(SheetWindow(), WM_NULL);
}

testing::AssertionResult SheetTest::Becomes(int id, bool enabled) {
    if (Eventually([&] { return Control(id) && (IsWindowEnabled(Control(id)) != FALSE) == enabled; }))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "control " << id << (enabled ? " is grey" : " isn't grey");
}

std::string SheetTest::TextOfControl(int id) {
    char text[300] = {};
    Ask(Control(id), WM_GETTEXT, sizeof(text), reinterpret_cast<LPARAM>(text));
    return text;
}

void SheetTest::Focus(int id) {
    Ask(GetParent(Control(id)), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(id)), TRUE);
}

void SheetTest::SelectRow(int list, int row) {
    ASSERT_TRUE(BringToFront(SheetWindow()));
    Focus(list);
    const auto selected = [&] { return Ask(Control(list), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED); };
    // Without a selection it depends on what the list last had which key makes one.
    for (const char* key : {"Down", "Home", "End"})
        if (selected() < 0) {
            TapKey(key);
            Eventually([&] { return selected() >= 0; }, 500);
        }
    // Key by key, so that none is still on its way when the row is there.
    for (int now = static_cast<int>(selected()); now != row;) {
        TapKey(now < row ? "Down" : "Up");
        ASSERT_TRUE(Eventually([&] { return selected() != now; })) << "row " << now << " stays selected, not " << row;
        now = static_cast<int>(selected());
    }
}

void SheetTest::Press(int button, bool closes) {
    HWND target = GetDlgItem(SheetWindow(), button);
    Click(MiddleOf(target));
    if (closes)
        EXPECT_TRUE(Eventually([&] { return !SheetWindow(); })) << "the sheet is still open";
    else
        EXPECT_TRUE(Eventually([&] { return !CanApply(); })) << "still something to apply";
}

testing::AssertionResult SheetTest::DesktopBecomes(int id) {
    if (Eventually([&] { return Status("current desktop") == std::to_string(id); })) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "the current desktop is " << Status("current desktop") << ", not " << id;
}

}  // namespace halyard::test
