// The item in the context menu of the shell's desktop, with a stand-in for the shell's window and real input.
#include "support/desktop_fixture.h"
#include "support/input.h"

namespace halyard::test {

namespace {

constexpr POINT MenuPlace = {300, 200};

using DesktopMenuTest = DesktopTest;

TEST_F(DesktopMenuTest, HasOneItemThatOpensTheSettings) {
    // The library looks for the shell's windows when it comes into the shell's process.
    const Sample shell = OpenProgram(CopyTo(ScratchFolder(), sample::File, "explorer.exe"), "--shell", "Progman");
    HWND view = nullptr;
    ASSERT_TRUE(Eventually(
        [&] { return (view = FindWindowExA(shell.window, nullptr, "SHELLDLL_DefView", nullptr)) != nullptr; }));
    StartLoader();
    LRESULT place = 0;
    const auto openMenu = [&] {
        PostMessageA(view, sample::OpenMenu, 0, MAKELPARAM(MenuPlace.x, MenuPlace.y));
        return Eventually([&] { return (place = Ask(view, sample::ItemPlace, published::DesktopMenuItem)) != 0; });
    };
    const auto sheet = [&] { return WindowOf(loader->Id(), "Tevral Ombrel Windows Manager"); };
    ASSERT_TRUE(openMenu());
    Click({MenuPlace.x + 12, MenuPlace.y + 10});
    ASSERT_TRUE(Eventually([&] { return Ask(view, sample::CountMessage, WM_COMMAND) == 1; })) << "the shell's own item";
    ASSERT_TRUE(Eventually([] { return !FindWindowA("#32768", nullptr); }));

    ASSERT_TRUE(openMenu());
    EXPECT_EQ(ReportOf({shell.program, view}, sample::ReportMenu),
              "100 \"Refresh\"\n0 ---- grey\n64771 \"Tevral Properties\"\n")
        << "opened twice";
    EXPECT_EQ(sheet(), nullptr) << "for the shell's own item";
    Click({LOWORD(place), HIWORD(place)});
    EXPECT_TRUE(Eventually([&] { return IsWindowVisible(sheet()) != FALSE; }));
}

}  // namespace

}  // namespace halyard::test
