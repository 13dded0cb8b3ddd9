// The loader's guard: no window is lost when the server, the guard or both are killed.
#include "support/desktop_fixture.h"

#include <cstdlib>
#include <random>
#include <vector>

namespace halyard::test {

namespace {

constexpr unsigned Programs = 10;
constexpr unsigned WindowsEach = 5;
constexpr unsigned FewKills = 6;    // HALYARD_KILLS in the environment asks for more
constexpr DWORD BackAgain = 2000;   // ms
constexpr DWORD LongestHang = 700;  // ms

class GuardTest : public DesktopTest {
protected:
    static bool KillById(const std::string& id) {
        const HANDLE process = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, std::stoul(id));
        const bool killed = TerminateProcess(process, 99) && WaitForSingleObject(process, WaitLimit) == WAIT_OBJECT_0;
        CloseHandle(process);
        return killed;
    }
    // Posts switches as fast as the server takes them until `end`.
    void SwitchUntil(DWORD end) {
        while (static_cast<int>(end - GetTickCount()) > 0) {
            PostMessageA(Server(), published::SwitchDesktop, 0, random() % 3);
            Sleep(random() % 30);
        }
    }
    // Whether all windows are to be seen after at most that time, in ms.
    static bool AllSeen(DWORD limit) {
        return Eventually([] { return SeenWindows().size() == Programs * WindowsEach; }, limit);
    }
    std::mt19937 random{7};
};

TEST_F(GuardTest, GivesEveryWindowBackAfterAnyKill) {
    const char* asked = std::getenv("HALYARD_KILLS");
    const unsigned kills = asked ? static_cast<unsigned>(std::atoi(asked)) : FewKills;
    std::vector<Sample> programs;
    while (programs.size() < Programs)
        programs.push_back(OpenSample("Program", "--count " + std::to_string(WindowsEach)));
    const HWND unshown = OpenSample("Unshown", "--hidden").window;
    DWORD longest = 0;
    for (unsigned kill = 0; kill < kills; ++kill) {
        SCOPED_TRACE("kill " + std::to_string(kill));
        StartLoader();
        ASSERT_TRUE(WindowsBecome(0, Programs * WindowsEach));
        // Each third time one program is busy while its windows are sent away.
        const bool busy = kill % 3 == 2;
        if (busy) PostMessageA(programs[kill % Programs].window, sample::Hang, LongestHang, 0);
        SwitchUntil(GetTickCount() + random() % 400);
        loader->Kill();
        const DWORD start = GetTickCount();
        ASSERT_TRUE(AllSeen(BackAgain));
        longest = std::max(longest, GetTickCount() - start);
        // A busy program does what it was asked late, and in the order of the requests.
        for (const Sample& program : programs)
            ASSERT_EQ(Ask(program.window, WM_NULL), 0) << "a program has died";
        ASSERT_TRUE(AllSeen(0));
        EXPECT_TRUE(StaysHidden(unshown));
    }
    std::printf("%u kills, all windows back after at most %lu ms\n", kills, longest);
    // Wine keeps the hooks of a thread that was killed.
    EXPECT_EQ(OpenSample("Later").program->Module("tvlHalyd.dll"), nullptr);
    StartLoader();
    EXPECT_TRUE(WindowsBecome(0, Programs * WindowsEach + 1));
}

TEST_F(GuardTest, IsReplacedAndStartsTheLoaderAgain) {
    const Sample sample = StartWithSample("Sample");
    const std::string first = Status("guard");
    ASSERT_TRUE(KillById(first));
    ASSERT_TRUE(Eventually([&] { return Status("guard") != first; }));
    ASSERT_NE(Status("guard"), "none");
    Switch(1);
    ASSERT_TRUE(BecomesHidden(sample.window));
    Sleep(5000);  // a server that dies at once isn't started again
    loader->Kill();
    EXPECT_TRUE(BecomesVisible(sample.window));
    EXPECT_TRUE(Eventually([] { return FindWindowA(published::LoaderClass, nullptr) && Server(); }));
    EXPECT_TRUE(WindowsBecome(0, 1));
    QuitLoader();
    EXPECT_TRUE(Eventually([&] { return children.CountRunning() == 1; })) << "a guard stays after the good-bye";
}

}  // namespace

}  // namespace halyard::test
