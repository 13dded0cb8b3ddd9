// The window "Programs", by keyboard.
#include "programs/resource_ids.h"
#include "support/desktop_fixture.h"
#include "support/input.h"

#include <commctrl.h>

namespace halyard::test {

namespace {

using ProgramsTest = DesktopTest;

TEST_F(ProgramsTest, ShowWhatIsDoneAndKeepHalyardOut) {
    StartLoader();
    OpenSample("Witness", "--count 2");
    ASSERT_TRUE(WindowsBecome(0, 2));
    const Child* program = children.Start("\"" + folder + "tvlhload.exe\" --programs");
    ASSERT_NE(program, nullptr);
    HWND dialog = nullptr;
    ASSERT_TRUE(Eventually([&] { return (dialog = WindowOf(program->Id(), "Halyard: programs")) != nullptr; }));
    ASSERT_TRUE(BringToFront(dialog));
    EXPECT_EQ(Ask(GetDlgItem(dialog, IDC_WINDOW_LIST), LVM_GETITEMCOUNT), 2);
    const std::string path = BinFolder() + sample::File + "\n";
    TapKey("alt+k");
    EXPECT_TRUE(Eventually([&] { return Loader("--excluded").out == path; })) << Loader("--excluded").out;
    TapKey("alt+l");
    EXPECT_TRUE(Eventually([&] { return Loader("--excluded").out.empty(); })) << Loader("--excluded").out;
    TapKey("Escape");
    EXPECT_TRUE(program->Ends(WaitLimit));
}

}  // namespace

}  // namespace halyard::test
