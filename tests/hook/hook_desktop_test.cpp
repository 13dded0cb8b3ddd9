// The library in other programs: which it takes part in, what it brings along, how it leaves.
#include "support/desktop_fixture.h"

namespace halyard::test {

namespace {

using HookTest = DesktopTest;

constexpr char LibraryFile[] = "tvlHalyd.dll";

TEST_F(HookTest, KeepOutOfExcludedProgramsAndClasses) {
    const std::string scratch = ScratchFolder();
    const std::string excludedPath = CopyTo(scratch, sample::File, "excluded.exe");
    const std::string includedPath = CopyTo(scratch, sample::File, "included.exe");
    WriteNumber(ProgramKey(excludedPath), "Excluded", 1);
    WriteNumber(ProgramKey(includedPath), "Excluded", 0);
    StartLoader();
    const Sample excluded = OpenProgram(excludedPath, {}, sample::DefaultTitle);
    const Sample included = OpenProgram(includedPath, {}, sample::DefaultTitle);
    const Sample ofExcludedClass = OpenSample("Left alone", "--class GLUT");
    ASSERT_TRUE(WindowsBecome(0, 1));
    EXPECT_NE(excluded.program->Module(LibraryFile), nullptr) << "mapped, but it does nothing there";
    Switch(1);
    EXPECT_TRUE(BecomesHidden(included.window));
    EXPECT_TRUE(StaysVisible(excluded.window));
    EXPECT_TRUE(StaysVisible(ofExcludedClass.window));
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
    ASSERT_EQ(plain.program->Module(LibraryFile), nullptr);
    plain.program->Kill();

    StartLoader();
    const Sample hooked = OpenSample("Hooked");
    ASSERT_TRUE(WindowsBecome(0, 1));
    for (int id : {1, 0})
        Switch(id);
    ASSERT_TRUE(BecomesVisible(hooked.window));
    ASSERT_NE(hooked.program->Module(LibraryFile), nullptr);
    EXPECT_EQ(MappedOf(hooked), withoutHooks);
}

int WidthOf(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    return place.right - place.left;
}

TEST_F(HookTest, LetProgramsOfSpecialNamesLive) {
    constexpr const char* Names[] = {"xsi.exe",     "QLPlay2.exe",  "winproj.exe", "ACAD.EXE",    "corelpp.exe",
                                     "modeler.exe", "lightwav.exe", "maya.exe",    "explorer.exe"};
    for (const char* setting : {"WindowMem", "Autodock", "DialogControl", "CtrlMax", "DragTrans"})
        WriteNumber(published::ProductKey, setting, 1);
    const std::string scratch = ScratchFolder();
    StartLoader();
    std::vector<Sample> samples;
    for (const char* name : Names)
        samples.push_back(OpenProgram(CopyTo(scratch, sample::File, name), {}, sample::DefaultTitle));
    ASSERT_TRUE(WindowsBecome(0, static_cast<unsigned>(samples.size())));
    for (const Sample& sample : samples) {
        EXPECT_NE(sample.program->Module(LibraryFile), nullptr);
        const int width = WidthOf(sample.window);
        PostMessageA(sample.window, WM_SYSCOMMAND, SC_MAXIMIZE, 0);
        EXPECT_TRUE(Eventually([&] { return WidthOf(sample.window) > width; })) << Describe(sample.window);
        PostMessageA(sample.window, WM_SYSCOMMAND, SC_RESTORE, 0);
        EXPECT_TRUE(Eventually([&] { return WidthOf(sample.window) == width; })) << Describe(sample.window);
    }
    Switch(1);
    for (const Sample& sample : samples)
        EXPECT_TRUE(BecomesHidden(sample.window));
    Switch(0);
    for (std::size_t index = 0; index < samples.size(); ++index) {
        EXPECT_TRUE(BecomesVisible(samples[index].window)) << Names[index];
        PostMessageA(samples[index].window, WM_CLOSE, 0, 0);
        EXPECT_TRUE(samples[index].program->Ends(WaitLimit)) << Names[index];
        EXPECT_EQ(samples[index].program->ExitStatus(), 0u) << Names[index];
    }
}

TEST_F(HookTest, TakeTheProgramsWindowsOutOfTheServersMapWithTheLibrary) {
    StartLoader();
    const Sample leaving = OpenSample("Leaving");
    const Sample staying = OpenSample("Staying");
    ASSERT_TRUE(WindowsBecome(0, 2));
    Switch(1);
    ASSERT_TRUE(BecomesHidden(leaving.window));
    ASSERT_EQ(Ask(leaving.window, sample::DropLibrary), 1);
    EXPECT_TRUE(BecomesVisible(leaving.window)) << "forgotten, and so shown";
    EXPECT_TRUE(WindowsBecome(0, 1));
    EXPECT_TRUE(StaysHidden(staying.window));
}

}  // namespace

}  // namespace halyard::test
