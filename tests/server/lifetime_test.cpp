// The loader: its first start, its switches, the ways in which it ends.
#include "shell/record.h"
#include "support/desktop_fixture.h"

namespace halyard::test {

namespace {

using FirstRunTest = DesktopTest;
using LoaderTest = DesktopTest;

TEST_F(FirstRunTest, StartsTheWizardOnce) {
    folder = ScratchFolder();
    CopyTo(folder, "tvlhload.exe", "tvlhload.exe");
    CopyTo(folder, "tvlHalyd.dll", "tvlHalyd.dll");
    const auto due = [] { return NumberOr(published::ProductKey, "RunWizard", 99) == 0; };
    const auto runs = [] { return standin::ReadNumber(standin::WizardRunsValue); };
    WriteNumber(published::ProductKey, "RunWizard", 0);

    StartLoader();
    EXPECT_TRUE(due()) << "without a wizard";
    EXPECT_EQ(Status("hooks"), "in");
    QuitLoader();

    CopyTo(folder, "sample_wizard.exe", "tvlhlwiz.exe");
    StartLoader();
    ASSERT_TRUE(Eventually([&] { return runs() == 1; }));
    EXPECT_EQ(standin::ReadText(standin::WizardCommandLineValue), folder + "tvlhlwiz.exe /halyard");
    EXPECT_FALSE(due());
    QuitLoader();

    StartLoader();
    QuitLoader();
    ASSERT_TRUE(Eventually([&] { return children.CountRunning() == 0; }));
    EXPECT_EQ(runs(), 1u);
}

TEST_F(LoaderTest, RefusesWhatItCantDo) {
    const auto expect = [&](const char* switches, DWORD status, const char* out, const char* error) {
        const Output output = Loader(switches);
        EXPECT_TRUE(output.status == status && output.out == out && output.error.rfind(error, 0) == 0)
            << switches << " ended with " << output.status << " and wrote: " << output.out << output.error;
    };
    for (const char* switches : {"--status", "--quit"})
        expect(switches, 1, "Halyard isn't running\n", "");
    StartLoader();
    for (const char* switches : {"--frobnicate", "--switch", "--switch one", "--status --quit --wrong"})
        expect(switches, 2, "", "usage: tvlhload");
    EXPECT_FALSE(loader->Ends(0)) << "none of a wrong line's switches is carried out";
}

TEST_F(LoaderTest, HandsItsSwitchesToTheResident) {
    StartLoader("--no-guard");
    const Sample sample = OpenSample("Told");
    ASSERT_TRUE(WindowsBecome(0, 1));
    EXPECT_EQ(Loader("--switch 2 --status").out,
              "enabled: yes\nhooks: in\ncurrent desktop: 2\ndesktop 0: \"Default\", 1 window\n"
              "desktop 1: \"One\", 0 windows\ndesktop 2: \"Two\", 0 windows\nall desktops: 0 windows\nguard: none\n");
    EXPECT_TRUE(BecomesHidden(sample.window));
    EXPECT_EQ(Loader("").status, 0u) << "a second start hands over nothing and ends";

    EXPECT_EQ(Loader("--disable --switch 1").out, "Halyard is turned off: no switch\n");
    EXPECT_EQ(Status("current desktop"), "0");
    EXPECT_EQ(Loader("--enable --switch 1").status, 0u);
    EXPECT_EQ(Status("current desktop"), "1");

    EXPECT_EQ(Loader("--quit").status, 0u);
    ASSERT_TRUE(loader->Ends(WaitLimit));
    EXPECT_EQ(loader->ExitStatus(), 0u);
    EXPECT_TRUE(BecomesVisible(sample.window));
    EXPECT_EQ(NumberOr(published::ProductKey, "Run", 99), 1u) << "the next start enables the system again";
}

TEST_F(LoaderTest, EndsWithTheSession) {
    StartLoader();
    const Sample sample = OpenSample("Hidden");
    ASSERT_TRUE(WindowsBecome(0, 1));
    Switch(1);
    ASSERT_TRUE(BecomesHidden(sample.window));
    const HWND window = FindWindowA(published::LoaderClass, nullptr);
    // The programs are asked whether it may end, and one of them calls it off.
    Ask(Server(), WM_QUERYENDSESSION);
    EXPECT_TRUE(BecomesVisible(sample.window));
    for (const HWND told : {window, Server()})
        Ask(told, WM_ENDSESSION, FALSE);
    EXPECT_NE(Server(), nullptr) << "a session that goes on";
    EXPECT_TRUE(BecomesHidden(sample.window));
    EXPECT_EQ(Status("current desktop"), "1");
    Ask(window, WM_ENDSESSION, TRUE);
    EXPECT_EQ(Server(), nullptr);
    EXPECT_TRUE(BecomesVisible(sample.window));
}

}  // namespace

}  // namespace halyard::test
