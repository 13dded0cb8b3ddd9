#include "config/sheet_fixture.h"

#include <commctrl.h>
#include <shlwapi.h>

namespace halyard::test {

namespace {

struct ControlSearch {
    int id;
    HWND found;
};

BOOL CALLBACK MatchControl(HWND window, LPARAM lParam) {
    auto& search = *reinterpret_cast<ControlSearch*>(lParam);
    if (GetDlgCtrlID(window) == search.id && IsWindowVisible(window)) search.found = window;
    return !search.found;
}

constexpr char BindingKey[] = "Software\\Tevral, Inc.\\Halyard\\HotKeys";

}  // namespace

HWND SheetTest::SheetWindow() {
    return WindowOf(loader->Id(), "Tevral Ombrel Windows Manager");
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
    const RECT place = PlaceOf(control);
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

testing::AssertionResult SheetTest::BecomesText(int id, const std::string& part) {
    if (Eventually([&] { return TextOfControl(id).find(part) != std::string::npos; }))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "\"" << TextOfControl(id) << "\" lacks \"" << part << "\"";
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
        ASSERT_TRUE(Eventually([&] { return selected() != now; })) << "row " << now << " stays selected, not " << row;
    }
}

void SheetTest::Press(int button) {
    const RECT place = PlaceOf(GetDlgItem(SheetWindow(), button));
    Click({(place.left + place.right) / 2, (place.top + place.bottom) / 2});
    EXPECT_TRUE(Eventually([&] { return button == ApplyButton ? !CanApply() : !SheetWindow(); })) << button;
}

void SheetTest::StoreBinding(const std::string& action, const std::string& bytes, HKEY hive) {
    SHSetValueA(hive, BindingKey, action.c_str(), REG_BINARY, (bytes + std::string(3, 0)).data(), 8);
}

std::string SheetTest::StoredBinding(const std::string& action) {
    char bytes[8] = {};
    DWORD size = sizeof(bytes);
    if (SHGetValueA(HKEY_CURRENT_USER, BindingKey, action.c_str(), nullptr, bytes, &size)) return "missing";
    return std::string(bytes, 5);
}

testing::AssertionResult SheetTest::DesktopBecomes(int id) {
    if (Eventually([&] { return Status("current desktop") == std::to_string(id); })) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "the current desktop is " << Status("current desktop") << ", not " << id;
}

}  // namespace halyard::test
