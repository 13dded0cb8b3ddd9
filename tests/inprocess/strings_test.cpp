// The texts that the user sees, and the brand that chooses among them.
#include "process/strings.h"
#include "store_fixture.h"

namespace halyard::test {
namespace {

// Texts of consecutive ids, each closed by a bar.
struct TextRun {
    unsigned first;
    const char* texts;
};

constexpr TextRun Table[] = {
    {2001, "Tevral Ombrel Windows Manager|Quillane Ombrel Windows Manager by Tevral|Windows|Desktops|HotKeys|Taskbars|"
           "Desktop|Desktop %d|Action|HotKey|Default|An applications 'system' menu has the Restore, Move, Maximize, "
           "and Minimize commands. This option adds a submenu containing commands for sending the window to other "
           "desktops, its 'always on top' status, etc.|Remember an application's position when it is closed, then "
           "restore that position the next time it is run.|Prevents moving windows from being split across multiple "
           "displays. This option applies to all top-level windows, not just application windows.|A maximized window "
           "usually fills only the display nearest its normal position. This option lets maximized windows fill the "
           "entire desktop, either by default or only when the Control key is held down at the same time as the "
           "window is maximized.|Inconsistent positioning of dialog boxes can be particularly annoying when using "
           "multiple displays. These options allow you to set all dialog boxes to reliably appear in the place of "
           "your choosing.|These are the desktops available to applications. Press F2 to rename the selected desktop.|"
           "Removes the selected desktop from the list. Note that you cannot remove the default desktop.|Creates a "
           "new desktop.|Set a custom wallpaper as the background for the selected desktop.|Activates the selected "
           "desktop.|This is the list of actions that are available. Select one, then use the shortcut box below to "
           "define the combination of keys that trigger the action.|Use this box to define the combination of keys to "
           "trigger the action selected in the above list.|"},
    {2025, "There is no help topic for this item.|"},
    {2031, "<select an action>|None|Return|Pause|Space|Home|Left|Up|Right|Down|Insert|Delete|F1|F2|F3|F4|F5|F6|F7|F8|"
           "F9|F10|F11|F13|F14|F15|F16|F17|F18|F19|F20|F21|F22|F23|F24|Ctrl + |Alt + |Shift + |Window + |Window "
           "Memory|Automatic Dock|Quillane|Tevral|Move to desktop |Move to other display|Always on top|Hide taskbar "
           "entry|Use default settings|All|Default desktop|Next desktop|Previous desktop|Find cursor|Open this dialog|"
           "Desktop '%s'|Toggle 'Always on top'|Move window to desktop '%s'|Move window to display %d|Application "
           "window|Application's display|Display with the cursor|Display %d|Tevral Properties|"},
};

constexpr unsigned short EnglishUs = 0x409;
constexpr unsigned short German = 0x407;

class StringsTest : public StoreTest {};

TEST_F(StringsTest, AreThoseOfTheTable) {
    unsigned count = 0;
    for (const TextRun& run : Table) {
        unsigned id = run.first;
        for (const char* at = run.texts; *at; ++id, ++count) {
            const char* end = std::strchr(at, '|');
            const std::string text(at, end);
            at = end + 1;
            const char* found = LookupString(id);
            ASSERT_NE(nullptr, found) << id;
            EXPECT_EQ(text, found) << id;
            EXPECT_EQ(text, LookupText(id).Text()) << id;
            EXPECT_STREQ(text.c_str(), LoadStringForLanguage(EnglishUs, id)) << id;
            EXPECT_EQ(nullptr, LoadStringForLanguage(German, id)) << id;
        }
    }
    EXPECT_EQ(87u, count);
}

TEST_F(StringsTest, AreEmptyBetweenThoseOfTheTableAndNothingOutsideOfItsBlocks) {
    for (const unsigned id : {2000u, 2024u, 2030u}) {
        const char* text = LookupString(id);
        ASSERT_NE(nullptr, text) << id;
        EXPECT_STREQ("", text) << id;
    }
    for (const unsigned id : {0u, 1u, 1999u, 3000u, 0xFFFFu, 0xFFFFFFFFu}) {
        EXPECT_EQ(nullptr, LookupString(id)) << id;
        EXPECT_STREQ("", LookupText(id).Text()) << id;
    }
}

TEST_F(StringsTest, ShareOneBuffer) {
    const char* first = LookupString(2001);
    const TextBuffer copy = LookupText(2003);
    const char* second = LookupString(2002);
    EXPECT_EQ(first, second);
    EXPECT_STREQ("Quillane Ombrel Windows Manager by Tevral", first);
    EXPECT_STREQ("Windows", copy.Text());
}

TEST_F(StringsTest, AreNothingInAModuleWithoutThem) {
    profile.moduleInstance = GetModuleHandleA("kernel32.dll");
    EXPECT_EQ(nullptr, LookupString(2001));
}

TEST_F(StringsTest, HaveTheMainBrandOnThisDriver) {
    EXPECT_FALSE(IsAlternativeBrand());
    EXPECT_FALSE(IsAlternativeBrand());
}

// Each of these runs on a system of its own, where the others would fail.
class SystemVersion : public StoreTest {
protected:
    SystemVersion() { ReadSystemVersion(profile); }
};

TEST_F(SystemVersion, Current) {
    EXPECT_TRUE(profile.isNtFamily);
    EXPECT_FALSE(profile.isWindows2000);
    EXPECT_TRUE(profile.enumDisplayMonitors && profile.getMonitorInfo && profile.monitorFromWindow &&
                profile.monitorFromRect);
}

TEST_F(SystemVersion, Windows2000) {
    EXPECT_TRUE(profile.isNtFamily);
    EXPECT_TRUE(profile.isWindows2000);
    EXPECT_FALSE(IsAlternativeBrand());
}

TEST_F(SystemVersion, WindowsXp) {
    EXPECT_TRUE(profile.isNtFamily);
    EXPECT_FALSE(profile.isWindows2000);
}

TEST_F(SystemVersion, Windows98) {
    EXPECT_FALSE(profile.isNtFamily);
    EXPECT_FALSE(profile.isWindows2000);
    // Another way to the driver.
    EXPECT_FALSE(IsAlternativeBrand());
    MakeKey(HKEY_LOCAL_MACHINE, ProductPath());
    StoreDword(HKEY_CURRENT_USER, ProductPath(), "DragTrans", 1);
    StoreDword(HKEY_CURRENT_USER, ProductPath(), "CtrlMax", 2);
    settings.Load();
    EXPECT_EQ(HKEY_CURRENT_USER, ChosenHive());
    EXPECT_EQ(2u, settings.CtrlMax());
    EXPECT_FALSE(settings.DragTrans());
    EXPECT_TRUE(CanChangeSettings());
}

}  // namespace
}  // namespace halyard::test
