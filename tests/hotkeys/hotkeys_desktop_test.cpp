// Combinations set in the sheet, and pressed while another program has the focus.
#include "config/sheet_fixture.h"

#include <vector>

#include <shlwapi.h>

namespace halyard::test {

namespace {

// Rows of the page: the six fixed actions, then the desktops.
enum Row { FindCursorRow, OpenDialogRow, TopmostRow, NextRow, PreviousRow, DefaultRow, DesktopOneRow, DesktopTwoRow };

constexpr char HotkeysKey[] = "Software\\Tevral, Inc.\\Halyard\\HotKeys";

struct Binding {
    BYTE alt, ctrl, shift, win;
    DWORD key;
};

void WriteBinding(const char* action, Binding binding) {
    SHSetValueA(HKEY_CURRENT_USER, HotkeysKey, action, REG_BINARY, &binding, sizeof(binding));
}

std::vector<DWORD> ReadBinding(const char* action) {
    Binding binding = {};
    DWORD size = sizeof(binding);
    if (SHGetValueA(HKEY_CURRENT_USER, HotkeysKey, action, nullptr, &binding, &size) != ERROR_SUCCESS) return {};
    return {binding.alt, binding.ctrl, binding.shift, binding.win, binding.key};
}

class HotkeysTest : public SheetTest {
protected:
    // Selects the row, presses the combination in the box or in the list, and sets it if that can be done.
    bool SetBinding(int row, const char* keys, bool inList = false) {
        SelectRow(IDC_HOTKEY_LIST, row);
        EXPECT_TRUE(Becomes(IDC_HOTKEY_BOX, true));
        if (!inList) Focus(IDC_HOTKEY_BOX);
        TapKey(keys);
        Ask(SheetWindow(), WM_NULL);
        if (!Eventually([&] { return IsWindowEnabled(Control(IDC_SET_HOTKEY)) != FALSE; }, 700)) return false;
        ClickControl(IDC_SET_HOTKEY);
        return true;
    }
};

TEST_F(HotkeysTest, AreSetShownStoredAndClear) {
    WriteBinding("6", {0, 1, 0, 0, 'D'});
    StartLoader();
    OpenSheet(HotkeysTab);
    EXPECT_EQ(TextOfControl(IDC_HOTKEY_BOX), "<select an action>");
    ASSERT_TRUE(Becomes(IDC_HOTKEY_BOX, false));

    EXPECT_TRUE(SetBinding(NextRow, "ctrl+shift+F5"));
    EXPECT_EQ(TextOfControl(IDC_HOTKEY_BOX), "Ctrl + Shift + F5");
    EXPECT_TRUE(SetBinding(PreviousRow, "ctrl+alt+b", true)) << "pressed in the list";
    EXPECT_EQ(TextOfControl(IDC_HOTKEY_BOX), "Ctrl + Alt + B");
    EXPECT_TRUE(SetBinding(TopmostRow, "alt+F7"));
    EXPECT_EQ(TextOfControl(IDC_HOTKEY_BOX), "Alt + F7");
    EXPECT_TRUE(SetBinding(DesktopTwoRow, "super+ctrl+F2"));
    EXPECT_EQ(TextOfControl(IDC_HOTKEY_BOX), "Ctrl + Window + F2");
    EXPECT_FALSE(SetBinding(FindCursorRow, "ctrl+F12")) << "F12 can't be bound";
    EXPECT_FALSE(SetBinding(FindCursorRow, "q")) << "a key alone is no binding";
    EXPECT_TRUE(SetBinding(DefaultRow, "BackSpace"));
    EXPECT_EQ(TextOfControl(IDC_HOTKEY_BOX), "None");
    EXPECT_TRUE(SetBinding(DesktopOneRow, "ctrl+shift+F5"));
    EXPECT_TRUE(Eventually([&] { return TextOfControl(IDC_HOTKEY_HINT).find("Next desktop") != std::string::npos; }))
        << "two actions with one combination aren't pointed out: " << TextOfControl(IDC_HOTKEY_HINT);
    EXPECT_TRUE(SetBinding(DesktopOneRow, "Delete"));
    EXPECT_EQ(ReadBinding("6"), (std::vector<DWORD>{0, 1, 0, 0, 'D'})) << "nothing is written before Apply";
    PressOk();

    EXPECT_EQ(ReadBinding("4"), (std::vector<DWORD>{0, 1, 1, 0, VK_F5}));
    EXPECT_EQ(ReadBinding("5"), (std::vector<DWORD>{1, 1, 0, 0, 'B'}));
    EXPECT_EQ(ReadBinding("3"), (std::vector<DWORD>{1, 0, 0, 0, VK_F7}));
    EXPECT_EQ(ReadBinding("1073741826"), (std::vector<DWORD>{0, 1, 0, 1, VK_F2}));
    EXPECT_EQ(ReadBinding("6")[4], 0u);
    EXPECT_EQ(ReadBinding("1073741825")[4], 0u);

    // Set but not applied, a combination is dropped by Cancel.
    OpenSheet(HotkeysTab);
    EXPECT_TRUE(SetBinding(FindCursorRow, "ctrl+F9"));
    PressCancel();
    OpenSheet(HotkeysTab);
    SelectRow(IDC_HOTKEY_LIST, FindCursorRow);
    EXPECT_EQ(TextOfControl(IDC_HOTKEY_BOX), "");
    PressCancel();
}

TEST_F(HotkeysTest, RunTheirActionsWhileAnotherProgramHasTheFocus) {
    const struct {
        const char* action;
        DWORD key;
    } bindings[] = {{"2", VK_F2}, {"3", VK_F3}, {"4", VK_F4}, {"5", VK_F5}, {"6", VK_F6}, {"1073741826", VK_F7}};
    for (const auto& row : bindings)
        WriteBinding(row.action, {0, 1, 1, 0, row.key});
    StartLoader();
    const Sample notepad = OpenNotepad();
    ASSERT_TRUE(WindowsBecome(0, 1));
    Assign(notepad.window, published::AllDesktops);
    ASSERT_TRUE(BringToFront(notepad.window));
    const std::pair<const char*, int> presses[] = {{"F4", 1}, {"F4", 2}, {"F4", 0}, {"F5", 2}, {"F6", 0}, {"F7", 2}};
    for (const auto& [key, desktop] : presses) {
        TapKey(std::string("ctrl+shift+") + key);
        ASSERT_TRUE(DesktopBecomes(desktop)) << "after " << key;
    }
    const auto isTopmost = [&] { return (GetWindowLongA(notepad.window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; };
    for (const bool topmost : {true, false}) {
        TapKey("ctrl+shift+F3");
        EXPECT_TRUE(Eventually([&] { return isTopmost() == topmost; })) << Describe(notepad.window);
    }
    // With desktops off the switches do nothing, the others work.
    WriteNumber(published::ProductKey, "MultiDesk", 0);
    AskServer(published::Restart, 1);
    ASSERT_TRUE(DesktopBecomes(0));
    TapKey("ctrl+shift+F4");
    TapKey("ctrl+shift+F2");
    EXPECT_TRUE(Eventually([&] { return SheetWindow() != nullptr; })) << "the dialog doesn't open";
    EXPECT_TRUE(DesktopBecomes(0));
}

TEST_F(HotkeysTest, ThatAnotherProgramHoldsAreExplained) {
    WriteBinding("4", {1, 1, 0, 0, VK_F8});
    ASSERT_TRUE(RegisterHotKey(nullptr, 1, MOD_ALT | MOD_CONTROL, VK_F8));
    StartLoader();
    OpenSheet(HotkeysTab);
    SelectRow(IDC_HOTKEY_LIST, NextRow);
    EXPECT_TRUE(Eventually([&] { return TextOfControl(IDC_HOTKEY_HINT).find("Another program") != std::string::npos; }))
        << TextOfControl(IDC_HOTKEY_HINT);
    UnregisterHotKey(nullptr, 1);
    PressCancel();
}

// The pixels on two lines through the cursor, which the rings cross.
std::vector<COLORREF> Surroundings() {
    std::vector<COLORREF> pixels;
    const HDC screen = GetDC(nullptr);
    for (int way = -110; way < 110; way += 3) {
        pixels.push_back(GetPixel(screen, 410 + way, 312));
        pixels.push_back(GetPixel(screen, 412, 310 + way));
    }
    ReleaseDC(nullptr, screen);
    return pixels;
}

TEST_F(HotkeysTest, FindTheCursorAndLeaveNoPixelBehind) {
    WriteBinding("1", {0, 1, 1, 0, VK_F9});
    StartLoader();
    const Sample sample = OpenSample("Under the rings", "--at 200,100,500,450");
    ASSERT_TRUE(WindowsBecome(0, 1));
    ASSERT_TRUE(BringToFront(sample.window));
    MoveMouse({410, 310});
    // Until nothing is painted any more: the rings invert what they find.
    std::vector<COLORREF> before;
    int same = 0;
    ASSERT_TRUE(Eventually([&] {
        const auto now = Surroundings();
        same = now == before ? same + 1 : 0;
        before = now;
        return same == 20;
    })) << "the sample doesn't stop painting";
    TapKey("ctrl+shift+F9");
    EXPECT_TRUE(Eventually([&] { return Surroundings() != before; })) << "no ring was seen";
    EXPECT_TRUE(Eventually([&] { return Surroundings() == before; })) << "pixels were left behind";
}

}  // namespace

}  // namespace halyard::test
