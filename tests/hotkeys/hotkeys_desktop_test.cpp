// Combinations set in the sheet, and pressed while another program has the focus.
#include "config/sheet_fixture.h"
#include "support/picture.h"

#include <commctrl.h>

namespace halyard::test {

namespace {

// Rows of the page: the six fixed actions, then the desktops.
enum Row { FindCursorRow, OpenDialogRow, TopmostRow, NextRow, PreviousRow, DefaultRow, DesktopOneRow, DesktopTwoRow };

std::string Binding(int key, int alt = 0, int ctrl = 1, int shift = 1, int win = 0) {
    std::string bytes;
    for (const int byte : {alt, ctrl, shift, win, key})
        bytes += static_cast<char>(byte);
    return bytes;
}

class HotkeysTest : public SheetTest {
protected:
    // Chooses the row and presses the combination, in the box or in the list. `shown` is what the box shows then; empty
    // `reason`: it can be set, and is; else the line under the box says that.
    void Set(int row, const char* keys, const std::string& shown, const char* reason = "", bool inList = false) {
        SCOPED_TRACE(keys);
        SelectRow(IDC_HOTKEY_LIST, row);
        ASSERT_TRUE(Becomes(IDC_HOTKEY_BOX, true));
        if (!inList) Focus(IDC_HOTKEY_BOX);
        TapKey(keys);
        EXPECT_TRUE(Eventually([&] { return TextOf(Control(IDC_HOTKEY_BOX)) == shown; }));
        ASSERT_TRUE(Becomes(IDC_SET_HOTKEY, !*reason));
        EXPECT_TRUE(BecomesText(IDC_HOTKEY_HINT, reason));
        EXPECT_EQ(Ask(Control(IDC_HOTKEY_LIST), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), row);
        if (!*reason) ClickControl(IDC_SET_HOTKEY);
    }
};

TEST_F(HotkeysTest, AreSetShownStoredAndClear) {
    WriteText(DesktopKey(2), nullptr, "R&D");
    StoreBinding("6", Binding('D', 0, 1, 0));
    StoreBinding("1", Binding(VK_F8, 1, 1, 0));
    ASSERT_TRUE(RegisterHotKey(nullptr, 1, MOD_ALT | MOD_CONTROL, VK_F8));
    StartLoader();
    OpenSheet(HotkeysTab);
    EXPECT_TRUE(BecomesText(IDC_HOTKEY_BOX, "<select an action>") && Becomes(IDC_HOTKEY_BOX, false));
    SelectRow(IDC_HOTKEY_LIST, FindCursorRow);
    EXPECT_TRUE(BecomesText(IDC_HOTKEY_HINT, "Another program"));
    UnregisterHotKey(nullptr, 1);

    Set(NextRow, "ctrl+alt+Down", "Ctrl + Alt + Down");
    Set(PreviousRow, "ctrl+alt+Up", "Ctrl + Alt + Up", "", true);
    Set(TopmostRow, "alt+a", "Alt + A");  // the letter of Apply, too
    EXPECT_TRUE(CanApply());
    Set(DesktopTwoRow, "super+ctrl+F2", "Ctrl + Window + F2");
    Set(DesktopOneRow, "super+ctrl+F2", "Ctrl + Window + F2", "Desktop 'R&D'");
    Set(FindCursorRow, "ctrl+F12", "Ctrl + ", "This key");
    Set(FindCursorRow, "q", "Q", "needs");
    Set(DefaultRow, "BackSpace", "None");
    EXPECT_EQ(StoredBinding("6"), Binding('D', 0, 1, 0)) << "nothing is written before Apply";
    Press(ApplyButton);
    EXPECT_EQ(StoredBinding("4"), Binding(VK_DOWN, 1, 1, 0));
    EXPECT_EQ(StoredBinding("5"), Binding(VK_UP, 1, 1, 0));
    EXPECT_EQ(StoredBinding("3"), Binding('A', 1, 0, 0));
    EXPECT_EQ(StoredBinding("1073741826"), Binding(VK_F2, 0, 1, 0, 1));
    EXPECT_EQ(StoredBinding("6")[4], 0);
}

// They rest while their page shows. What is set but not applied is dropped by Cancel.
TEST_F(HotkeysTest, RunTheirActionsWhileAnotherProgramHasTheFocus) {
    const std::pair<const char*, int> bindings[] = {{"1", VK_F9}, {"2", VK_F2}, {"3", VK_F3},         {"4", VK_F4},
                                                    {"5", VK_F5}, {"6", VK_F6}, {"1073741826", VK_F7}};
    for (const auto& [action, key] : bindings)
        StoreBinding(action, Binding(key));
    StartLoader();
    OpenSheet(HotkeysTab);
    Loader("--disable --enable");
    Set(DesktopOneRow, "ctrl+shift+F11", "Ctrl + Shift + F11");
    Press(ApplyButton);
    Set(DesktopOneRow, "ctrl+shift+F4", "Ctrl + Shift + F4", "Next desktop");
    EXPECT_TRUE(DesktopBecomes(0));
    OpenSheet(WindowsTab);
    TapKey("ctrl+shift+F4");
    EXPECT_TRUE(DesktopBecomes(1));
    OpenSheet(HotkeysTab);
    Set(DefaultRow, "Delete", "None");
    Press(IDCANCEL);
    const Sample typed = OpenFrame("Typed into", "--at 200,100,500,450");
    ASSERT_TRUE(WindowsBecome(1, 1));
    ASSERT_TRUE(BringToFront(typed.window));
    // The rings around the cursor invert what they find, so that nothing may be painted any more.
    MoveMouse({410, 310});
    const auto around = [] { return PixelsOf({300, 200, 520, 420}); };
    ASSERT_TRUE(Eventually([&] {
        const auto before = around();
        Sleep(200);
        return around() == before;
    }));
    const auto before = around();
    TapKey("ctrl+shift+F9");
    EXPECT_TRUE(Eventually([&] { return around() != before; })) << "no ring was seen";
    EXPECT_TRUE(Eventually([&] { return around() == before; })) << "pixels were left behind";
    Assign(typed.window, published::AllDesktops);
    const std::pair<const char*, int> presses[] = {{"F4", 2}, {"F4", 0}, {"F5", 2}, {"F6", 0}, {"F7", 2}};
    for (const auto& [key, desktop] : presses) {
        TapKey(std::string("ctrl+shift+") + key);
        ASSERT_TRUE(DesktopBecomes(desktop)) << "after " << key;
    }
    for (const bool topmost : {true, false}) {
        TapKey("ctrl+shift+F3");
        EXPECT_TRUE(Eventually([&] { return IsTopmost(typed.window) == topmost; }));
    }
    // With desktops off the switches do nothing, the others work.
    WriteNumber(published::ProductKey, "MultiDesk", 0);
    AskServer(published::Restart, 1);
    TapKey("ctrl+shift+F4 ctrl+shift+F2");
    EXPECT_TRUE(Eventually([&] { return SheetWindow() != nullptr; })) << "the dialog doesn't open";
    EXPECT_TRUE(DesktopBecomes(0));
}

// The window in front goes to a desktop, alone or with the user, who adds Shift for that; and to a display.
TEST_F(HotkeysTest, MoveTheWindowInFront) {
    StoreBinding("-2147483646", Binding('M', 1, 1, 0));
    StoreBinding("-1610612734", Binding('D', 1, 1, 0));
    StoreBinding("-1610612727", Binding('E', 1, 1, 0));  // of a ninth display
    StartLoader();
    const Sample left = OpenFrame("Left");
    const Sample moved = OpenFrame("Moved");
    ASSERT_TRUE(WindowsBecome(0, 2));
    ASSERT_TRUE(BringToFront(moved.window));
    TapKey("ctrl+alt+d");
    EXPECT_TRUE(Eventually([&] { return PlaceOf(moved.window).left >= 1024; })) << Describe(moved.window);
    TapKey("ctrl+alt+m");
    EXPECT_TRUE(BecomesHidden(moved.window));
    EXPECT_TRUE(BecomesFront(left.window)) << "the next";
    EXPECT_TRUE(WindowsBecome(2, 1) && DesktopBecomes(0));
    TapKey("ctrl+alt+shift+m");
    EXPECT_TRUE(DesktopBecomes(2));
    EXPECT_TRUE(BecomesFront(left.window)) << "what came along stays in front";
    EXPECT_TRUE(BecomesVisible(moved.window) && WindowsBecome(2, 2));
    OpenSheet(HotkeysTab);
    Press(IDOK);
    EXPECT_EQ(StoredBinding("-1610612727"), Binding('E', 1, 1, 0)) << "the display may come back";
}

}  // namespace

}  // namespace halyard::test
