// The library in other programs: which it takes part in, what it brings along, how it leaves.
#include "support/desktop_fixture.h"
#include "support/input.h"

namespace halyard::test {

namespace {

using HookTest = DesktopTest;

// Both copies of the command wait when the program gets to them.
TEST_F(HookTest, RunACommandThatWaitsTwiceOnce) {
    constexpr WPARAM TopmostItem = 64769;
    const Sample sample = StartWithSample("Twice");
    for (const bool topmost : {true, false}) {
        PostMessageA(sample.window, sample::Hang, 300, 0);
        PostMessageA(sample.window, WM_SYSCOMMAND, TopmostItem, 0);
        PostMessageA(sample.window, WM_SYSCOMMAND, TopmostItem, 0);
        EXPECT_TRUE(Eventually([&] { return IsTopmost(sample.window) == topmost; }));
        Ask(sample.window, WM_NULL);
        EXPECT_EQ(IsTopmost(sample.window), topmost);
    }
}

// Of the libraries that the system itself may come to need, those that are mapped into a sample program that has been
// through the usual.
std::vector<std::string> MappedOf(const Sample& sample) {
    Ask(sample.window, sample::OpenPopup, TRUE);
    Ask(sample.window, sample::ShowAs, SW_HIDE);
    Ask(sample.window, sample::ShowAs, SW_SHOW);
    std::vector<std::string> mapped;
    for (const char* name : {"shell32.dll", "comctl32.dll", "ole32.dll", "msimg32.dll", "dbghelp.dll"})
        if (sample.program->Module(name)) mapped.push_back(name);
    return mapped;
}

TEST_F(HookTest, BringNoLibraryAlongThatNothingNeeds) {
    const Sample plain = OpenSample("Plain");
    const std::vector<std::string> withoutHooks = MappedOf(plain);
    plain.program->Kill();

    const Sample hooked = StartWithSample("Hooked");
    for (int id : {1, 0})
        Switch(id);
    ASSERT_TRUE(BecomesVisible(hooked.window));
    ASSERT_NE(hooked.program->Module("tvlHalyd.dll"), nullptr);
    EXPECT_EQ(MappedOf(hooked), withoutHooks);
}

// With a stand-in for the shell's window and real input.
TEST_F(HookTest, GiveTheShellsDesktopOneItemThatOpensTheSettings) {
    constexpr POINT MenuPlace = {300, 200};
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
    ASSERT_TRUE(openMenu());
    Click({MenuPlace.x + 12, MenuPlace.y + 10});
    ASSERT_TRUE(Eventually([&] { return Ask(view, sample::CountMessage, WM_COMMAND) == 1; })) << "the shell's own item";
    ASSERT_TRUE(Eventually([] { return !FindWindowA("#32768", nullptr); }));

    ASSERT_TRUE(openMenu());
    EXPECT_EQ(ReportOf({shell.program, view}, sample::ReportMenu),
              "100 \"Refresh\"\n0 ---- grey\n64771 \"Tevral Properties\"\n")
        << "opened twice";
    Click({LOWORD(place), HIWORD(place)});
    EXPECT_TRUE(Eventually([&] { return IsWindowVisible(WindowOf(loader->Id(), "Tevral Ombrel Windows Manager")); }));
}

}  // namespace

}  // namespace halyard::test
