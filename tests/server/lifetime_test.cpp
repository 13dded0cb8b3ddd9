// The loader: its first start, its switches, the ways in which it ends.
#include "shell/record.h"
#include "support/desktop_fixture.h"

namespace halyard::test {

namespace {

using FirstRunTest = DesktopTest;
class LoaderTest : public DesktopTest {
protected:
    void Expect(const char* switches, DWORD status, const std::string& start) {
        const Output output = Loader(switches);
        EXPECT_TRUE(output.status == status && output.out.rfind(start, 0) == 0)
            << switches << " ended with " << output.status << " and wrote: " << output.out;
    }
};

TEST_F(FirstRunTest, StartsTheWizardOnce) {
    folder = ScratchFolder();
    CopyTo(folder, "tvlhload.exe", "tvlhload.exe");
    CopyTo(folder, "tvlHalyd.dll", "tvlHalyd.dll");
    const auto due = [] { return NumberOr(published::ProductKey, "RunWizard", 99) == 0; };
    const auto runs = [] { return NumberOr(standin::StandInKey, standin::WizardRunsValue, 0); };
    WriteNumber(published::ProductKey, "RunWizard", 0);

    StartLoader();
    EXPECT_TRUE(due()) << "without a wizard";
    EXPECT_EQ(Status("hooks"), "in");
    QuitLoader();

    CopyTo(folder, "sample_wizard.exe", "tvlhlwiz.exe");
    StartLoader();
    ASSERT_TRUE(Eventually([&] { return runs() == 1; }));
    EXPECT_EQ(TextOf(standin::StandInKey, standin::WizardCommandLineValue), folder + "tvlhlwiz.exe /halyard");
    EXPECT_FALSE(due());
    QuitLoader();

    StartLoader();
    QuitLoader();
    ASSERT_TRUE(Eventually([&] { return children.CountRunning() == 0; }));
    EXPECT_EQ(runs(), 1u);
}

TEST_F(LoaderTest, HandsItsSwitchesToTheResident) {
    for (const char* switches : {"--status", "--quit"})
        Expect(switches, 1, "Halyard isn't running\n");
    StartLoader("--no-guard");
    for (const char* switches : {"--frobnicate", "--status --quit --wrong"})
        Expect(switches, 2, "usage: tvlhload");
    const Sample sample = OpenSample("Told");
    ASSERT_TRUE(WindowsBecome(0, 1));
    const std::string status = Loader("--switch 2 --status").out;
    EXPECT_EQ(status.substr(0, status.find("inside: ")),
              "enabled: yes\nhooks: in\ncurrent desktop: 2\ndesktop 0: \"Default\", 1 window\n"
              "desktop 1: \"One\", 0 windows\ndesktop 2: \"Two\", 0 windows\nall desktops: 0 windows\nguard: none\n");
    EXPECT_TRUE(BecomesHidden(sample.window));
    Expect("", 0, "");

    EXPECT_NE(status.find("inside: sample.exe"), std::string::npos) << status;
    const std::string json = Loader("--json").out;
    EXPECT_NE(json.find("\"currentDesktop\": 2,"), json.npos) << json;
    EXPECT_NE(json.find("{\"id\": 1, \"name\": \"One\", \"windows\": 0}"), json.npos) << json;
    Expect("--switch 77", 1, "Halyard has no desktop 77\n");
    Expect("--config 4", 1, "The settings have no page 4 (0 to 3)\n");
    Expect("--disable --switch 1", 1, "Halyard is turned off: no switch\n");
    EXPECT_EQ(Status("current desktop"), "0");
    Expect("--enable --switch 1", 0, "");
    EXPECT_EQ(Status("current desktop"), "1");

    Expect("--quit", 0, "");
    ASSERT_TRUE(loader->Ends(WaitLimit));
    EXPECT_EQ(loader->ExitStatus(), 0u);
    EXPECT_TRUE(BecomesVisible(sample.window));
    EXPECT_EQ(NumberOr(published::ProductKey, "Run", 99), 1u) << "the next start enables the system again";
}

TEST_F(LoaderTest, DoesSomeThingsByItself) {
    Expect("--help", 0, "");
    Expect("--help --status", 2, "");
    const std::string program = CopyTo(ScratchFolder(), sample::File, "kept out.exe");
    EXPECT_EQ(Loader("--exclude \"" + program + "\"").status, 0u);
    StartLoader();
    const Sample excluded = OpenProgram(program, {}, sample::DefaultTitle);
    const Sample ofExcludedClass = OpenSample("Left alone", "--class GLUT");
    const Sample sent = OpenSample("Sent");
    ASSERT_TRUE(WindowsBecome(0, 1));
    Switch(1);
    EXPECT_TRUE(BecomesHidden(sent.window));
    EXPECT_TRUE(StaysVisible(excluded.window));
    EXPECT_TRUE(StaysVisible(ofExcludedClass.window));
    EXPECT_NE(Loader("--status").out.find("excluded: " + program), std::string::npos);
    EXPECT_EQ(Loader("--include \"" + program + "\"").status, 0u);
    OpenProgram(program, {}, sample::DefaultTitle);
    EXPECT_TRUE(WindowsBecome(1, 1));
    for (const char* state : {"on", "off"}) {
        EXPECT_EQ(Loader(std::string("--autostart ") + state).status, 0u);
        const std::string stored = TextOf("Software\\Microsoft\\Windows\\CurrentVersion\\Run", "Halyard");
        EXPECT_EQ(stored.empty(), state == std::string("off")) << stored;
    }
}

TEST_F(LoaderTest, EndsWithTheSession) {
    const Sample sample = StartWithSample("Hidden");
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
