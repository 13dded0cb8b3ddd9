#include "support/desktop_fixture.h"

#include "common/handles.h"
#include "process/protocol.h"
#include "shell/record.h"
#include "support/picture.h"

namespace halyard::test {

namespace {

std::string TestName() {
    return testing::UnitTest::GetInstance()->current_test_info()->name();
}

}  // namespace

std::string BinFolder() {
    char path[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, path, sizeof(path) - 1);
    const std::string whole = path;
    return whole.substr(0, whole.rfind('\\') + 1);
}

void DesktopTest::SetUp() {
    // Wine starts its desktop's process at this call or at some child's, and it would end with that child's job.
    GetDesktopWindow();
    ASSERT_EQ(Server(), nullptr) << "a server runs already";
    DeleteKey(published::ProductKey);
    DeleteKey(standin::StandInKey);
    for (const char* value : {"Run", "RunWizard", "MultiDesk"})
        WriteNumber(published::ProductKey, value, 1);
    WriteNumber(published::ProductKey, "ShowDesktopName", 0);
    WriteNumber(published::ProductKey, "TrayIcon", 0);
    WriteText(DesktopKey(1), nullptr, "One");
    WriteText(DesktopKey(2), nullptr, "Two");
    folder = BinFolder();
}

void DesktopTest::TearDown() {
    if (HasFailure()) {
        std::printf("The desktop at the end of the test:\n");
        for (HWND window : TopLevelWindows())
            std::printf("  %s\n", Describe(window).c_str());
        if (Server()) std::printf("%s", Loader("--status").out.c_str());
        std::printf("Picture: %s\n", SavePicture(TestName()).c_str());
    }
    QuitLoader();
    children.EndAll();
    EXPECT_TRUE(Eventually([] { return !Server(); })) << "the server was left behind";
}

void DesktopTest::StartLoader(const std::string& switches) {
    loader = children.Start("\"" + folder + "tvlhload.exe\" " + switches);
    ASSERT_NE(loader, nullptr);
    ASSERT_TRUE(Eventually([] { return FindWindowA(published::LoaderClass, nullptr) != nullptr; })) << "not resident";
    ASSERT_NE(Server(), nullptr);
}

Output DesktopTest::Loader(const std::string& switches) {
    return children.Run("\"" + folder + "tvlhload.exe\" " + switches);
}

void DesktopTest::QuitLoader() {
    const HWND window = FindWindowA(published::LoaderClass, nullptr);
    if (!window) return;
    PostMessageA(window, WM_CLOSE, 0, 0);
    EXPECT_TRUE(!loader || loader->Ends(WaitLimit)) << "the loader doesn't end";
}

Sample DesktopTest::OpenProgram(const std::string& file, const std::string& switches, const std::string& title) {
    Sample sample = {children.Start("\"" + file + "\" " + switches), nullptr};
    EXPECT_TRUE(sample.program &&
                Eventually([&] { return (sample.window = WindowOf(sample.program->Id(), title)) != nullptr; }))
        << file << " shows no window \"" << title << "\"";
    return sample;
}

Sample DesktopTest::OpenNotepad() {
    // The one of this program's bitness; the one in the folder above isn't.
    char system[MAX_PATH] = {};
    GetSystemDirectoryA(system, sizeof(system));
    return OpenProgram(std::string(system) + "\\notepad.exe", {}, "Untitled - Notepad");
}

std::vector<HWND> DesktopTest::SeenWindows() {
    std::vector<HWND> seen;
    for (HWND window : TopLevelWindows()) {
        const std::string text = Describe(window);
        const bool opened = text.find("\"HalyardSample") != text.npos || text.find("\"Notepad\"") != text.npos;
        if (opened && IsWindowVisible(window)) seen.push_back(window);
    }
    return seen;
}

std::string DesktopTest::ScratchFolder() {
    char temporary[MAX_PATH] = {};
    GetTempPathA(sizeof(temporary), temporary);
    const std::string own = temporary + TestName() + std::to_string(GetTickCount());
    EXPECT_TRUE(CreateDirectoryA(own.c_str(), nullptr)) << own;
    return own + "\\";
}

std::string DesktopTest::CopyTo(const std::string& targetFolder, const std::string& file, const std::string& name) {
    const std::string target = targetFolder + name;
    EXPECT_TRUE(CopyFileA((BinFolder() + file).c_str(), target.c_str(), FALSE)) << target;
    return target;
}

testing::AssertionResult DesktopTest::WindowsBecome(int desktop, unsigned count) {
    unsigned present = 0;
    return Comes([&] { return (present = static_cast<unsigned>(AskServer(HM_COUNT_WINDOWS, 0, desktop))) == count; },
                 [&] { return Format("desktop %d has %u windows, not %u", desktop, present, count); });
}

std::string DesktopTest::Status(const std::string& name) {
    const std::string text = "\n" + Loader("--status").out, start = "\n" + name + ": ";
    const std::size_t found = text.find(start), value = found + start.size();
    return found == text.npos ? "no \"" + name + "\" in" + text : text.substr(value, text.find('\n', value) - value);
}

}  // namespace halyard::test
