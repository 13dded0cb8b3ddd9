#include "support/behaviour_fixture.h"

namespace halyard::test {

void BehaviourTest::SetUp() {
    DesktopTest::SetUp();
    for (const char* value : {"Autodock", "CtrlMax", "DialogControl", "DragTrans", "WindowMem"})
        Set(value, 0);
    SetFullDrag(true);
    ASSERT_TRUE(Arrange(SideBySide())) << Describe(PresentDisplays());
    MoveMouse({1000, 740});
}

void BehaviourTest::TearDown() {
    ReleaseMouse();
    DesktopTest::TearDown();
}

void BehaviourTest::SetFullDrag(bool on) {
    SystemParametersInfoA(SPI_SETDRAGFULLWINDOWS, on, nullptr, SPIF_UPDATEINIFILE);
}

void BehaviourTest::TellSettings(const Sample& witness) {
    PostMessageA(HWND_BROADCAST, RegisterWindowMessageA(published::SettingBroadcast), 1, 0);
    // Behind it in the queue of the same thread.
    const LRESULT before = Ask(witness.window, sample::CountMessage, WM_APPCOMMAND);
    PostMessageA(witness.window, WM_APPCOMMAND, 0, 0);
    EXPECT_TRUE(Eventually([&] { return Ask(witness.window, sample::CountMessage, WM_APPCOMMAND) > before; }));
}

Sample BehaviourTest::OpenFrameFrom(const std::string& file, const std::string& title, const std::string& switches) {
    const Sample frame = OpenProgram(file, "--title \"" + title + "\" " + switches, title);
    EXPECT_TRUE(Eventually([&] { return IsWindowVisible(frame.window) != FALSE; })) << Describe(frame.window);
    return frame;
}

Sample BehaviourTest::OpenFrame(const std::string& title, const std::string& switches) {
    return OpenFrameFrom(BinFolder() + sample::File, title, switches);
}

Sample BehaviourTest::OpenFrameAs(const std::string& name, const std::string& title, const std::string& switches) {
    return OpenFrameFrom(CopyTo(ScratchFolder(), sample::File, name), title, switches);
}

HWND BehaviourTest::OpenDialog(const Sample& frame, sample::Owner owner, POINT place) {
    const LRESULT dialog = Ask(frame.window, sample::OpenDialog, owner, MAKELONG(place.x, place.y));
    return reinterpret_cast<HWND>(static_cast<LONG_PTR>(dialog));
}

void BehaviourTest::Close(const Sample& sample) {
    PostMessageA(sample.window, WM_CLOSE, 0, 0);
    EXPECT_TRUE(sample.program->Ends(WaitLimit)) << "doesn't end: " << Describe(sample.window);
}

}  // namespace halyard::test
