// Wallpaper, style and colour go out and come back with their desktops, through the stand-in shell's object.
#include "shell/record.h"
#include "support/desktop_fixture.h"

namespace halyard::test {

namespace {

constexpr char ActiveDesktopClass[] = "{75048700-EF1F-11D0-9888-006097DEACF9}";

using Background = std::pair<std::string, DWORD>;  // wallpaper and style

class BackgroundTest : public DesktopTest {
protected:
    // As the user does in the control panel.
    static void Choose(const Background& background) {
        WriteText(standin::StandInKey, "Wallpaper", background.first);
        WriteNumber(standin::StandInKey, standin::WallpaperStyleValue, background.second);
    }
    static void Store(int desktop, const Background& background, COLORREF colour) {
        WriteText(DesktopKey(desktop), "Wallpaper", background.first);
        WriteNumber(DesktopKey(desktop), "WallpaperStyle", background.second);
        WriteNumber(DesktopKey(desktop), "Colour", colour);
    }
    // By the shell.
    static Background Shown() {
        return {TextOf(standin::StandInKey, "Wallpaper"),
                NumberOr(standin::StandInKey, standin::WallpaperStyleValue, 0)};
    }
    // In a fresh program, since running ones may keep a colour that they have asked for once.
    COLORREF Colour() { return children.Run("\"" + BinFolder() + sample::File + "\" --colour").status; }
    const ClassRegistration registration{ActiveDesktopClass, BinFolder() + "standin_shell.dll"};
};

const Background DefaultPicture = {"C:\\pictures\\default.bmp", 2};
const Background OnePicture = {"C:\\pictures\\one.bmp", 1};
constexpr COLORREF ColourOne = RGB(0x20, 0x40, 0x60);
constexpr COLORREF ColourTwo = RGB(0x70, 0x10, 0x30);

TEST_F(BackgroundTest, GoesWithItsDesktop) {
    const COLORREF defaultColour = Colour();
    Choose(DefaultPicture);
    Store(1, OnePicture, ColourOne);
    Store(2, {}, ColourTwo);
    StartLoader("--no-guard");
    const Sample witness = OpenSample("Witness");
    Assign(witness.window, published::AllDesktops);
    const LRESULT changesBefore = Ask(witness.window, sample::CountMessage, WM_SETTINGCHANGE);

    Switch(1);
    EXPECT_EQ(Shown(), OnePicture);
    EXPECT_EQ(Colour(), ColourOne);
    EXPECT_EQ(Ask(witness.window, sample::CountMessage, WM_SETTINGCHANGE), changesBefore + 1);
    // What the user chooses on a desktop stays with it.
    const Background chosen = {"C:\\pictures\\chosen.bmp", 0};
    Choose(chosen);
    Switch(2);
    EXPECT_EQ(Shown(), Background()) << "a desktop without wallpaper";
    EXPECT_EQ(Colour(), ColourTwo);
    EXPECT_EQ(TextOf(DesktopKey(1), "Wallpaper"), chosen.first);
    EXPECT_EQ(NumberOr(DesktopKey(1), "WallpaperStyle", 99), chosen.second);
    EXPECT_EQ(NumberOr(DesktopKey(1), "Colour", 99), ColourOne);
    Switch(0);
    EXPECT_EQ(Shown(), DefaultPicture);
    EXPECT_EQ(Colour(), defaultColour);
    Switch(1);
    EXPECT_EQ(Shown(), chosen);

    // The user changes the default picture after a switch to nowhere, and the server dies.
    Switch(0);
    Switch(77);
    Choose(OnePicture);
    loader->Kill();
    ASSERT_TRUE(Eventually([] { return !Server(); }));
    StartLoader("--no-guard");
    EXPECT_EQ(Shown(), OnePicture) << "nothing to recover";
    Switch(1);
    loader->Kill();
    ASSERT_TRUE(Eventually([] { return !Server(); }));
    StartLoader();
    EXPECT_EQ(Shown(), OnePicture) << "recovered";
    Switch(1);
    QuitLoader();
    EXPECT_EQ(Shown(), OnePicture) << "the end brings the default desktop's";
    EXPECT_EQ(Colour(), defaultColour);
    EXPECT_EQ(NumberOr(DesktopKey(0), "Colour", 99), 99u) << "the default desktop is not stored";
}

TEST_F(BackgroundTest, IsOnlyAColourWhereTheShellsObjectCantBeMade) {
    const ClassRegistration missing(ActiveDesktopClass, "C:\\missing.dll");
    Store(1, OnePicture, ColourOne);
    StartLoader();
    Switch(1);
    EXPECT_EQ(Colour(), ColourOne);
    Switch(0);
    EXPECT_EQ(TextOf(DesktopKey(1), "Wallpaper"), OnePicture.first) << "kept as it was";
}

}  // namespace

}  // namespace halyard::test
