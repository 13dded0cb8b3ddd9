// The chooser of a background, where the platform has no panel of its own for it.
#include "config/sheet_fixture.h"

namespace halyard::test {

namespace {

class WallpaperTest : public SheetTest {
protected:
    static constexpr char Panel[] = "Control Panel\\Desktop";
    HWND Chooser() { return WindowOf(loader->Id(), "Background of the desktop"); }
    void Click(int control) { SendMessageA(Chooser(), WM_COMMAND, control, 0); }
};

TEST_F(WallpaperTest, IsChosenForTheSelectedDesktop) {
    WriteText(DesktopKey(1), "Wallpaper", "C:\\old.bmp");
    StartLoader();
    OpenSheet(DesktopsTab);
    SelectRow(IDC_DESKTOP_LIST, 1);
    ClickControl(IDC_WALLPAPER);
    ASSERT_TRUE(Eventually([&] { return Chooser() != nullptr; }));
    EXPECT_TRUE(DesktopBecomes(1));
    EXPECT_TRUE(Eventually([&] { return TextOf(Panel, "Wallpaper") == "C:\\old.bmp"; })) << TextOf(Panel, "Wallpaper");
    Click(IDC_WALLPAPER_NONE);
    PostMessageA(Chooser(), WM_COMMAND, IDCANCEL, 0);
    ASSERT_TRUE(Eventually([&] { return !Chooser(); }));
    EXPECT_EQ(TextOf(Panel, "Wallpaper"), "C:\\old.bmp") << "given up";
    ClickControl(IDC_WALLPAPER);
    ASSERT_TRUE(Eventually([&] { return Chooser() != nullptr; }));
    Click(IDC_WALLPAPER_NONE);
    PostMessageA(Chooser(), WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(Eventually([&] { return TextOf(Panel, "Wallpaper").empty(); }));
    Press(IDOK);
    Switch(0);
    EXPECT_TRUE(Eventually([&] { return TextOf(DesktopKey(1), "Wallpaper").empty(); }));
}

}  // namespace

}  // namespace halyard::test
