// The change of the current desktop, and the background that goes with it.
#include "desktops/desktop_switch.h"

#include "desktops/background.h"
#include "process/registry_key.h"
#include "server_fixture.h"

namespace halyard::test {
namespace {

class DesktopSwitchTest : public ServerTest {
protected:
    DesktopSwitchTest() {
        StartServer();
        AddDesktops(3);
    }

    static bool IsStored(DesktopId id) { return KeyExists(HKEY_CURRENT_USER, StoredDesktop(id)); }
    static DesktopId After(void (*change)()) {
        change();
        return CurrentDesktopId();
    }
};

TEST_F(DesktopSwitchTest, StoresTheDesktopThatIsLeft) {
    Activate(1);
    EXPECT_EQ(1u, CurrentDesktopId());
    EXPECT_EQ(Names{}, Subkeys(HKEY_CURRENT_USER, ProductPath("Desktops"))) << "the default desktop has no key";
    SetColour(0x334455);
    Activate(2);
    EXPECT_EQ(0x334455u, StoredDword(HKEY_CURRENT_USER, StoredDesktop(1), "Colour"));
    EXPECT_EQ(Bytes("Desktop 1", 10), StoredText(HKEY_CURRENT_USER, StoredDesktop(1), ""));
    SetColour(0x665544);
    Activate(2);
    EXPECT_FALSE(IsStored(2)) << "the current one again";
    EXPECT_EQ(0x202020u, desktopList.Find(2)->colour);
    Activate(9);
    EXPECT_EQ(2u, CurrentDesktopId()) << "one that does not exist";
    EXPECT_EQ(0x665544u, StoredDword(HKEY_CURRENT_USER, StoredDesktop(2), "Colour"));
    EXPECT_TRUE(ColourBecomes(0x665544));
}

TEST_F(DesktopSwitchTest, GoesRoundTheListBothWays) {
    for (const DesktopId expected : {1u, 2u, 3u, 0u, 1u})
        EXPECT_EQ(expected, After(ActivateNext));
    for (const DesktopId expected : {0u, 3u, 2u})
        EXPECT_EQ(expected, After(ActivatePrevious));
    SetCurrentDesktopId(8);
    EXPECT_EQ(8u, After(ActivateNext)) << "one that is not in the list";
    EXPECT_EQ(8u, After(ActivatePrevious));
    SetCurrentDesktopId(0);
    for (const DesktopId id : {1u, 2u, 3u})
        desktopList.Remove(id);
    EXPECT_EQ(0u, After(ActivateNext)) << "the only one";
    EXPECT_EQ(0u, After(ActivatePrevious));
}

TEST_F(DesktopSwitchTest, BringsTheWindowsOfARemovedDesktopToTheDefaultOne) {
    const TestWindow here(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    const TestWindow there(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    windowDesktopMap.Assign(here.get(), 1);
    windowDesktopMap.Assign(there.get(), 2);
    Activate(1);
    EXPECT_TRUE(Becomes(false, there.get()));
    RemoveDesktop(2);
    EXPECT_EQ(1u, CurrentDesktopId());
    EXPECT_EQ(0u, windowDesktopMap.Find(there.get())->desktopId);
    EXPECT_TRUE(Becomes(true, here.get()));
    RemoveDesktop(1);
    EXPECT_EQ(0u, CurrentDesktopId());
    EXPECT_FALSE(IsStored(1)) << "what is gone is not stored";
    for (const TestWindow* window : {&here, &there}) {
        EXPECT_TRUE(Becomes(true, window->get()));
        EXPECT_EQ(0u, windowDesktopMap.Find(window->get())->desktopId);
    }
    RemoveDesktop(0);
    RemoveDesktop(7);
    EXPECT_EQ(2u, desktopList.Count());
    EXPECT_EQ(3u, desktopList.IdAt(1));
}

TEST_F(DesktopSwitchTest, TurningTheDesktopsOffBringsAllWindowsToTheDefaultOne) {
    const TestWindow hidden(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    const TestWindow everywhere(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    SetMultiDesk(true);
    EXPECT_TRUE(settings.MultiDesk());
    windowDesktopMap.Assign(hidden.get(), 1);
    windowDesktopMap.Assign(everywhere.get(), AllDesktopsId);
    Activate(2);
    EXPECT_TRUE(Becomes(false, hidden.get()));
    SetMultiDesk(true);
    EXPECT_EQ(2u, CurrentDesktopId()) << "it was on";
    SetMultiDesk(false);
    EXPECT_EQ(0u, CurrentDesktopId());
    EXPECT_TRUE(Becomes(true, hidden.get()));
    EXPECT_EQ(2u, windowDesktopMap.CountOn(0));
    Activate(2);
    SetMultiDesk(false);
    EXPECT_EQ(2u, CurrentDesktopId()) << "it was off";
    EXPECT_FALSE(StoredDword(HKEY_CURRENT_USER, ProductPath(), "MultiDesk")) << "memory only";
}

TEST_F(DesktopSwitchTest, CountsADesktopThatNobodyHasAsTheDefaultOne) {
    for (const auto& [id, known] :
         {std::pair(0u, 0u), {3u, 3u}, {4u, 0u}, {AllDesktopsId, AllDesktopsId}, {UnsavedDesktopId, 0u}})
        EXPECT_EQ(known, KnownDesktop(id)) << id;
}

TEST_F(DesktopSwitchTest, LeavesWindowsAndBackgroundAloneOutsideTheServer) {
    const TestWindow window(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    windowDesktopMap.Assign(window.get(), 2);
    profile.isServerProcess = false;
    desktopList.Find(0)->colour = 0x010203;
    Activate(1);
    EXPECT_EQ(1u, CurrentDesktopId());
    EXPECT_EQ(0x010203u, desktopList.Find(0)->colour) << "nothing captured";
    EXPECT_EQ(background, BackgroundColour()) << "nothing applied";
    PumpAll();
    EXPECT_TRUE(IsWindowVisible(window.get()));
    profile.isServerProcess = true;
}

// The shell's object cannot be created for as long as this lives.
class NoShellObject {
public:
    NoShellObject() {
        const auto text = StoredText(HKEY_CLASSES_ROOT, Server, "");
        EXPECT_TRUE(text) << "not registered where expected";
        library = text.value_or("");
        Store(HKEY_CLASSES_ROOT, Server, "", REG_SZ, Bytes("no such file.dll", 17));
    }
    NoShellObject(const NoShellObject&) = delete;
    NoShellObject& operator=(const NoShellObject&) = delete;
    ~NoShellObject() { Store(HKEY_CLASSES_ROOT, Server, "", REG_SZ, library); }

private:
    static constexpr char Server[] = "CLSID\\{75048700-EF1F-11D0-9888-006097DEACF9}\\InProcServer32";
    Bytes library;
};

TEST_F(DesktopSwitchTest, SwapsTheColourAndKeepsTheWallpaperWithoutTheShellsObject) {
    const NoShellObject none;
    TestWindow top;
    int changes = 0;
    top.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_SETTINGCHANGE) ++changes;
        return std::nullopt;
    };
    for (const DesktopId id : {0u, 1u}) {
        desktopList.Find(id)->wallpaper = "C:\\kept.bmp";
        desktopList.Find(id)->wallpaperStyle = 1;
    }
    SetColour(0x0000AA);
    Activate(1);
    EXPECT_TRUE(ColourBecomes(0x101010));
    EXPECT_EQ(0x0000AAu, desktopList.Find(0)->colour);
    Activate(0);
    EXPECT_TRUE(ColourBecomes(0x0000AA));
    for (const DesktopId id : {0u, 1u}) {
        EXPECT_STREQ("C:\\kept.bmp", desktopList.Find(id)->wallpaper.Text()) << id;
        EXPECT_EQ(1u, desktopList.Find(id)->wallpaperStyle) << id;
    }
    EXPECT_EQ(Bytes("C:\\kept.bmp", 12), StoredText(HKEY_CURRENT_USER, StoredDesktop(1), "Wallpaper"));
    PumpAll();
    EXPECT_EQ(0, changes);
}

TEST_F(DesktopSwitchTest, TheServersStartTakesTheColourThatIsThere) {
    StopServer();
    SetColour(0x00BB00);
    StartServer();
    EXPECT_EQ(0x00BB00u, desktopList.Find(0)->colour);
}

TEST_F(DesktopSwitchTest, ARequestInTheMiddleOfASwitchIsCarriedOutAfterIt) {
    TestWindow leaving(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    DesktopId atRequest = 99;
    leaving.handler = [&](UINT message, WPARAM shown, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_SHOWWINDOW && !shown && atRequest == 99) {
            Activate(3);
            atRequest = CurrentDesktopId();
        }
        return std::nullopt;
    };
    windowDesktopMap.Assign(leaving.get(), 0);
    Activate(1);
    EXPECT_EQ(1u, atRequest) << "99: it was never hidden";
    EXPECT_EQ(3u, CurrentDesktopId());
    EXPECT_TRUE(ColourBecomes(0x303030));
    EXPECT_EQ(0x101010u, desktopList.Find(1)->colour) << "it was left with the colour that it had just been given";
}

}  // namespace
}  // namespace halyard::test
