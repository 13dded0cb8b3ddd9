#include "support/behaviour_fixture.h"

namespace halyard::test {

void BehaviourTest::SetUp() {
    DesktopTest::SetUp();
    for (const char* value : {"Autodock", "CtrlMax", "DialogControl", "DragTrans", "WindowMem"})
        Set(value, 0);
    SystemParametersInfoA(SPI_SETDRAGFULLWINDOWS, TRUE, nullptr, SPIF_UPDATEINIFILE);
    ASSERT_TRUE(Arrange(SideBySide())) << Describe(PresentDisplays());
    MoveMouse({1000, 740});
}

void BehaviourTest::TearDown() {
    ReleaseMouse();
    DesktopTest::TearDown();
}

void BehaviourTest::TellSettings(const Sample& witness) {
    PostMessageA(HWND_BROADCAST, RegisterWindowMessageA(published::SettingBroadcast), 1, 0);
    // After it in the queue of the same thread.
    const LRESULT before = Ask(witness.window, sample::CountMessage, WM_APPCOMMAND);
    PostMessageA(witness.window, WM_APPCOMMAND, 0, 0);
    EXPECT_TRUE(Eventually([&] { return Ask(witness.window, sample::CountMessage, WM_APPCOMMAND) > before; }));
}

Sample BehaviourTest::OpenFrame(const std::string& title, const std::string& switches, const std::string& file) {
    const Sample frame = OpenProgram(file, "--title \"" + title + "\" " + switches, title);
    EXPECT_TRUE(BecomesVisible(frame.window));
    return frame;
}

void BehaviourTest::Close(const Sample& sample) {
    PostMessageA(sample.window, WM_CLOSE, 0, 0);
    EXPECT_TRUE(sample.program->Ends(WaitLimit)) << "doesn't end: " << Describe(sample.window);
}

}  // namespace halyard::test
