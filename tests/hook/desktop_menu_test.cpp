// The item in the context menu of the shell's desktop, with a stand-in for the shell's window and real input.
#include "support/desktop_fixture.h"
#include "support/input.h"

namespace halyard::test {

namespace {

constexpr POINT MenuPlace = {300, 200};
constexpr char MenuClass[] = "#32768";
constexpr char SheetTitle[] = "Tevral Ombrel Windows Manager";

class DesktopMenuTest : public DesktopTest {
protected:
    void OpenMenu() {
        PostMessageA(view, sample::OpenMenu, 0, MAKELPARAM(MenuPlace.x, MenuPlace.y));
        ASSERT_TRUE(Eventually([&] { return ItemPlace() != 0; })) << "the menu doesn't open";
    }
    LRESULT ItemPlace() const { return Ask(view, sample::ItemPlace, published::DesktopMenuItem); }
    HWND Sheet() const { return WindowOf(loader->Id(), SheetTitle); }
    HWND view = nullptr;
};

TEST_F(DesktopMenuTest, HasOneItemThatOpensTheSettings) {
    // The library looks for the shell's windows when it comes into the shell's process.
    const Sample shell = OpenProgram(CopyTo(ScratchFolder(), sample::File, "explorer.exe"), "--shell", "Progman");
    ASSERT_TRUE(Eventually(
        [&] { return (view = FindWindowExA(shell.window, nullptr, "SHELLDLL_DefView", nullptr)) != nullptr; }));
    StartLoader();
    OpenMenu();
    Click({MenuPlace.x + 12, MenuPlace.y + 10});
    ASSERT_TRUE(Eventually([&] { return Ask(view, sample::CountMessage, WM_COMMAND) == 1; })) << "the shell's own item";
    ASSERT_TRUE(Eventually([] { return !FindWindowA(MenuClass, nullptr); }));

    OpenMenu();
    EXPECT_EQ(ReportOf({shell.program, view}, sample::ReportMenu),
              "100 \"Refresh\"\n0 ---- grey\n64771 \"Tevral Properties\"\n")
        << "opened twice";
    EXPECT_EQ(Sheet(), nullptr) << "for the shell's own item: " << Describe(Sheet());
    const LRESULT place = ItemPlace();
    Click({LOWORD(place), HIWORD(place)});
    EXPECT_TRUE(Eventually([&] { return Sheet() && IsWindowVisible(Sheet()); }));
}

}  // namespace

}  // namespace halyard::test
